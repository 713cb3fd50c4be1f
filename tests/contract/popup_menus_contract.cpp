// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::MenuItem;

MenuItem item(const wchar_t* name, const wchar_t* caption) {
  MenuItem made;
  made.name = name;
  made.caption = caption;
  return made;
}

MenuItem separator(const wchar_t* name) {
  MenuItem made = item(name, L"-");
  made.separator = true;
  return made;
}

MenuItem hidden(MenuItem made) {
  made.visible = false;
  return made;
}

std::vector<MenuItem> make_items() {
  std::vector<MenuItem> items = {item(L"First", L"První"), separator(L"Line"),
                                 item(L"Grey", L"Šedá"),   hidden(item(L"Hidden", L"Skrytá")),
                                 item(L"More", L"Další"),  item(L"Last", L"Poslední")};
  items[2].enabled = false;
  items[4].children = {item(L"Deep", L"Hluboká"), item(L"Deeper", L"Níž")};
  items[5].checked = true;
  return items;
}

struct PopupMenusContract : testing::Test {
  HandBackend b;
  std::vector<MenuItem> items = make_items();
};

TEST_F(PopupMenusContract, TheNameOfTheChosenItemComesBack) {
  b.choose(L"Last", L"Poslední");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"Last");
  b.choose(L"First", L"První");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"First");
}

TEST_F(PopupMenusContract, AnItemOfASubmenuCanBeChosen) {
  b.choose(L"Deeper", L"Níž");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"Deeper");
}

TEST_F(PopupMenusContract, ADashIsACaptionAsAnyOther) {
  items[0].caption = L"-";
  b.choose(L"First", L"-");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"First");
}

TEST_F(PopupMenusContract, ClosingChoosesNothing) {
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
}

TEST_F(PopupMenusContract, WhatIsDisabledOrHiddenCannotBeChosen) {
  b.choose(L"Grey", L"Šedá");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  b.choose(L"Hidden", L"Skrytá");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
}

TEST_F(PopupMenusContract, WithNothingToBeSeenNothingOpens) {
  bool opened = false;
  b.while_open([&] { opened = true; });
  EXPECT_EQ(b.popup_menus.pop_up({}, nullptr), L"");
  EXPECT_EQ(b.popup_menus.pop_up({hidden(item(L"Hidden", L"Skrytá"))}, nullptr), L"");
  b.loop.run_pending();
  EXPECT_FALSE(opened);
}

TEST_F(PopupMenusContract, WhileOneIsOpenAnotherDoesNotOpen) {
  std::wstring inner = L"none";
  b.while_open([&] { inner = b.popup_menus.pop_up({item(L"Other", L"Jiná")}, nullptr); });
  b.choose(L"First", L"První");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"First");
  EXPECT_EQ(inner, L"");
}

TEST_F(PopupMenusContract, TimersTickWhileOneIsOpen) {
  int ticks = 0;
  const auto timer = b.loop.make_timer(20, [&] { ++ticks; });
  timer->start();
  b.stay_open(300);
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  EXPECT_GE(ticks, 3);
}

TEST_F(PopupMenusContract, TheTreeMayChangeWhileTheMenuIsOpen) {
  b.while_open([&] { items.clear(); });
  b.choose(L"Last", L"Poslední");
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"Last");
}

TEST_F(PopupMenusContract, TheBeginningOfTheEndClosesAMenu) {
  bool opened = false;
  b.while_open([&] {
    opened = true;
    b.loop.begin_end();
  });
  b.leave_open();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  EXPECT_TRUE(opened);
  EXPECT_TRUE(b.loop.ending());
  EXPECT_FALSE(b.loop.quitting());
}

TEST_F(PopupMenusContract, AfterTheBeginningOfTheEndNoMenuOpens) {
  bool opened = false;
  b.while_open([&] { opened = true; });
  b.leave_open();
  b.loop.begin_end();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  b.pass(50);
  EXPECT_FALSE(opened);
}

TEST_F(PopupMenusContract, AnAnchorMayBeHidden) {
  auto& label = b.window.make_label(L"InfoName", platform::LabelKind::link, platform::LabelFont::normal);
  label.set_visible(false);
  b.choose(L"First", L"První");
  EXPECT_EQ(b.popup_menus.pop_up(items, &label), L"First");
}

} // namespace
} // namespace lumotune::contract
