// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the keyboard is in the main window, and that it keeps its place.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;

// Made in another order than they are seen in.
struct KeyboardContract : testing::Test {
  Backend b;
  platform::PictureBox& play = picture(L"Hraj", 240, 2580, 780, 780);
  platform::ListBox& list = made(b.window.make_list(L"Seznam"), 240, 600, 5820, 1800);
  platform::Label& link = made(b.window.make_label(L"Odkaz", LabelKind::link, LabelFont::normal), 240, 420, 900, 150);
  platform::PictureBox& end_button = picture(L"Konec", 5730, 90, 300, 300);
  platform::PictureBox& top_button = picture(L"Nahore", 4770, 90, 300, 300);

  KeyboardContract() {
    (void)made(b.window.make_label(L"Text", LabelKind::text, LabelFont::normal), 0, 0, 300, 300);
    b.window.resize(6300, 3480);
    b.window.set_visible(true);
    come_back();
  }
  template <typename Kind>
  static Kind& made(Kind& control, int x, int y, int width, int height) {
    control.move(x, y);
    control.resize(width, height);
    return control;
  }
  platform::PictureBox& picture(const wchar_t* name, int x, int y, int width, int height) {
    return made(b.window.make_picture(name, PictureKind::button), x, y, width, height);
  }
  void tab_to(const std::wstring& name) {
    for (int i = 0; i < 6 && b.keyboard_at() != name; ++i)
      b.tab();
    EXPECT_EQ(b.keyboard_at(), name);
  }
  void come_back() {
    b.window.activate();
    EXPECT_TRUE(b.until([this] { return b.has_keyboard(); }));
  }
};

TEST_F(KeyboardContract, TabGoesOverEveryStopTheWayTheEyeReads) {
  EXPECT_EQ(b.keyboard_at(), L"Hraj") << "at first with the one made first";
  for (const wchar_t* next : {L"Nahore", L"Konec", L"Odkaz", L"Seznam", L"Hraj"}) {
    b.tab();
    EXPECT_EQ(b.keyboard_at(), next);
  }
  for (const wchar_t* before : {L"Seznam", L"Odkaz", L"Konec", L"Nahore", L"Hraj"}) {
    b.tab(true);
    EXPECT_EQ(b.keyboard_at(), before);
  }
}

TEST_F(KeyboardContract, TabPassesOverWhatCannotBeUsed) {
  end_button.set_visible(false);
  link.set_enabled(false);
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"Seznam");
}

TEST_F(KeyboardContract, ItIsStillThereAfterAnotherWindow) {
  tab_to(L"Seznam");
  b.leave();
  EXPECT_EQ(b.keyboard_at(), L"");
  come_back();
  EXPECT_EQ(b.keyboard_at(), L"Seznam");
}

TEST_F(KeyboardContract, ItIsStillThereAfterHidingAndMinimising) {
  tab_to(L"Konec");
  b.window.set_visible(false);
  EXPECT_TRUE(b.until([this] { return !b.has_keyboard(); }));
  b.window.set_visible(true);
  come_back();
  EXPECT_EQ(b.keyboard_at(), L"Konec");
  b.window.set_state(platform::WindowState::minimized);
  b.window.set_visible(false);
  EXPECT_TRUE(b.until([this] { return !b.has_keyboard(); }));
  b.window.set_visible(true);
  b.window.set_state(platform::WindowState::normal);
  come_back();
  EXPECT_EQ(b.keyboard_at(), L"Konec");
}

TEST_F(KeyboardContract, ItGoesOnFromAControlOutOfReachAndBackToIt) {
  tab_to(L"Seznam");
  list.set_visible(false);
  EXPECT_EQ(b.keyboard_at(), L"Hraj");
  play.set_enabled(false);
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
  play.set_enabled(true);
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
  list.set_visible(true);
  EXPECT_EQ(b.keyboard_at(), L"Seznam");
}

TEST_F(KeyboardContract, ItStaysWhereTheUserTookItMeanwhile) {
  tab_to(L"Seznam");
  list.set_enabled(false);
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
  list.set_enabled(true);
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
}

TEST_F(KeyboardContract, WhatGoesOutOfReachBehindAnotherWindowIsPassedOver) {
  tab_to(L"Seznam");
  b.leave();
  list.set_visible(false);
  come_back();
  EXPECT_EQ(b.keyboard_at(), L"Hraj");
  list.set_visible(true);
  EXPECT_EQ(b.keyboard_at(), L"Seznam");
}

TEST_F(KeyboardContract, WithNothingToUseTheWindowHasIt) {
  for (platform::Control* control :
       {static_cast<platform::Control*>(&play), static_cast<platform::Control*>(&list),
        static_cast<platform::Control*>(&link), static_cast<platform::Control*>(&end_button),
        static_cast<platform::Control*>(&top_button)})
    control->set_enabled(false);
  EXPECT_EQ(b.keyboard_at(), L"");
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"");
  top_button.set_enabled(true);
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"Nahore");
}

TEST_F(KeyboardContract, AQuickSecondClickPressesAPictureAgainAndIsADoubleClickOfALabel) {
  int presses = 0;
  int clicks = 0;
  int doubles = 0;
  end_button.on_click = [&] { ++presses; };
  end_button.on_double_click = [&] { ++doubles; };
  b.double_click(end_button);
  EXPECT_EQ(presses, 2);
  EXPECT_EQ(doubles, 0);
  link.on_click = [&] { ++clicks; };
  link.on_double_click = [&] { ++doubles; };
  b.double_click(link);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubles, 1);
}

TEST_F(KeyboardContract, AStopWithoutASizeIsPassedOver) {
  tab_to(L"Odkaz");
  link.resize(0, 150);
  EXPECT_EQ(b.keyboard_at(), L"Seznam") << "the next one stands in";
  b.tab(true);
  EXPECT_EQ(b.keyboard_at(), L"Konec");
  b.tab();
  EXPECT_EQ(b.keyboard_at(), L"Seznam");
  link.resize(900, 150);
  b.tab(true);
  EXPECT_EQ(b.keyboard_at(), L"Odkaz");
  link.resize(0, 0);
  link.resize(600, 150);
  EXPECT_EQ(b.keyboard_at(), L"Odkaz") << "it comes back";
}

TEST_F(KeyboardContract, TheMenuKeyIsTheControlsOrTheWindows) {
  int window_menus = 0;
  int list_menus = 0;
  b.window.on_menu = [&] { ++window_menus; };
  list.on_menu_key = [&] { ++list_menus; };
  b.menu_key();
  EXPECT_EQ(window_menus, 1);
  tab_to(L"Seznam");
  b.menu_key();
  EXPECT_EQ(window_menus, 1);
  EXPECT_EQ(list_menus, 1);
  for (platform::Control* each :
       std::initializer_list<platform::Control*>{&play, &list, &link, &end_button, &top_button})
    each->set_visible(false);
  EXPECT_EQ(b.keyboard_at(), L"");
  b.menu_key();
  EXPECT_EQ(window_menus, 2) << "nothing but the background is left";
  b.right_click();
  EXPECT_EQ(window_menus, 3);
  b.leave();
  come_back();
  b.menu_key();
  EXPECT_EQ(window_menus, 4);
}

} // namespace
} // namespace lumotune::contract
