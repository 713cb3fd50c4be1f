// SPDX-License-Identifier: LGPL-2.1-or-later
// What only the real backend's menus have: the system's records, places, keys, timers that go on.
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>

namespace lumotune::contract {
namespace {

using platform::MenuItem;

MenuItem item(const std::wstring& name, const std::wstring& caption) {
  MenuItem made;
  made.name = name;
  made.caption = caption;
  return made;
}

struct Win32Menus : testing::Test {
  HandBackend b;
  RECT seen{}; // where the menu was

  void note_place() {
    b.while_open([this] { GetWindowRect(seen_windows(L"#32768").front(), &seen); });
    b.close_menu();
  }
  void input(UINT message, WPARAM w) {
    PostMessageW(b.window.handle(), message, w, 0);
    b.loop.run_pending();
  }
};

TEST_F(Win32Menus, TheSystemGetsTheTreeAsItIs) {
  std::vector<MenuItem> items = {item(L"A", L"Rock & Pop"),           item(L"B", L"-"),      item(L"C", L"a\tb"),
                                 item(L"D", L"Zaškrtnutá"),           item(L"E", L"Skrytá"), item(L"F", L"Prázdná"),
                                 item(L"G", std::wstring(5000, L'x'))};
  items[1].separator = true;
  items[2].enabled = false;
  items[3].checked = true;
  items[4].visible = false;
  items[5].children = {items[4]};
  std::vector<std::wstring> captions;
  std::vector<UINT> states;
  b.while_open([&] {
    const HMENU menu = open_menu();
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      captions.push_back(raw_caption(menu, i));
      states.push_back(GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & 0xff);
    }
  });
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  ASSERT_EQ(captions.size(), 6U);
  EXPECT_EQ(captions[0], L"Rock && Pop");
  EXPECT_EQ(captions[2], L"a b");
  EXPECT_EQ(captions[3], L"Zaškrtnutá");
  EXPECT_EQ(captions[4], L"Prázdná");
  EXPECT_EQ(captions[5], std::wstring(300, L'x') + L"…");
  EXPECT_EQ(states[0], 0U);
  EXPECT_EQ(states[2], static_cast<UINT>(MF_GRAYED));
  EXPECT_EQ(states[3], static_cast<UINT>(MF_CHECKED));
  EXPECT_EQ(states[4], static_cast<UINT>(MF_GRAYED)) << "a submenu in which nothing is to be seen";
}

TEST_F(Win32Menus, AfterTheMouseAMenuOpensAtThePointer) {
  b.show_in_front();
  auto& label = b.window.make_label(L"InfoName", platform::LabelKind::link, platform::LabelFont::normal);
  label.move(300, 300);
  label.resize(1500, 300);
  input(WM_KEYDOWN, VK_F24);
  input(WM_LBUTTONDOWN, 0);
  input(WM_LBUTTONUP, 0);
  SetCursorPos(333, 222);
  note_place();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, &label), L"");
  EXPECT_EQ(seen.left, 333);
  EXPECT_EQ(seen.top, 222);
}

TEST_F(Win32Menus, AfterAKeyAMenuOpensBelowItsAnchor) {
  b.show_in_front();
  auto& label = b.window.make_label(L"InfoName", platform::LabelKind::link, platform::LabelFont::normal);
  label.move(300, 300);
  label.resize(1500, 300);
  SetCursorPos(333, 222);
  input(WM_LBUTTONUP, 0);
  input(WM_KEYDOWN, VK_F24);
  note_place();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, &label), L"");
  RECT place{};
  GetWindowRect(b.window.handle_of(label), &place);
  EXPECT_EQ(seen.left, place.left);
  EXPECT_EQ(seen.top, place.bottom);
}

TEST_F(Win32Menus, AfterAKeyAMenuWithoutAnAnchorOpensAtThePointer) {
  input(WM_KEYDOWN, VK_F24);
  SetCursorPos(333, 222);
  note_place();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, nullptr), L"");
  EXPECT_EQ(seen.left, 333);
}

TEST_F(Win32Menus, AfterAKeyAMenuWhoseAnchorIsOutOfSightOpensInTheWindowsCorner) {
  b.show_in_front();
  auto& label = b.window.make_label(L"InfoName", platform::LabelKind::link, platform::LabelFont::normal);
  label.set_visible(false);
  SetCursorPos(333, 111);
  input(WM_KEYDOWN, VK_F24);
  note_place();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, &label), L"");
  RECT place{};
  GetWindowRect(b.window.handle(), &place);
  EXPECT_EQ(seen.left, place.left);
  EXPECT_EQ(seen.top, place.top);
}

TEST_F(Win32Menus, AfterAKeyAMenuOfAListOpensBelowTheSelectedRow) {
  b.show_in_front();
  auto& list = b.window.make_list(L"Control_List");
  list.resize(3000, 1500);
  for (int i = 0; i < 50; ++i)
    list.add(L"Rádio " + std::to_wstring(i));
  list.select(2);
  input(WM_KEYDOWN, VK_F24);
  note_place();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, &list), L"");
  RECT row{};
  SendMessageW(b.window.handle_of(list), LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
  MapWindowPoints(b.window.handle_of(list), nullptr, reinterpret_cast<POINT*>(&row), 2);
  EXPECT_EQ(seen.left, row.left);
  EXPECT_EQ(seen.top, row.bottom);
}

struct Rows final : platform::RowModel {
  [[nodiscard]] std::size_t count() const override { return 500; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t /*column*/) const override {
    return L"Rádio " + std::to_wstring(row);
  }
  [[nodiscard]] bool bold(std::size_t /*row*/) const override { return false; }
};

TEST_F(Win32Menus, AMenuOfAnotherWindowBelongsToThatWindow) {
  b.show_in_front();
  const Rows rows;
  const auto window = b.framed_windows.make(L"ListRadios");
  auto& list = window->make_list_view(L"ListView1");
  list.add_column(L"Name", L"Název rádia", 2000);
  list.resize(3000, 3000);
  list.set_rows(&rows);
  list.rows_changed();
  window->resize(6000, 5000);
  window->set_visible(true);
  const HWND control = dynamic_cast<platform::win32::ChildWindow&>(list).handle();
  EXPECT_TRUE(b.until([&] { return IsWindowVisible(control) != 0; }));
  b.window.activate();
  EXPECT_TRUE(b.until([&] { return GetForegroundWindow() == b.window.handle(); }));
  list.select(400);
  input(WM_KEYDOWN, VK_F24);
  HWND front = nullptr;
  b.while_open([&] {
    GetWindowRect(seen_windows(L"#32768").front(), &seen);
    front = GetForegroundWindow();
  });
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, &list), L"");
  EXPECT_EQ(front, GetAncestor(control, GA_ROOT));
  RECT row{};
  row.left = LVIR_LABEL;
  SendMessageW(control, LVM_GETITEMRECT, 399, reinterpret_cast<LPARAM>(&row));
  MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&row), 2);
  EXPECT_EQ(seen.left, row.left);
  EXPECT_EQ(seen.top, row.bottom);
}

TEST_F(Win32Menus, TimersAndWakersGoOnWhileAMenuIsOpen) {
  int ticks = 0;
  int runs = 0;
  const auto timer = b.loop.make_timer(10, [&] { ++ticks; });
  const auto waker = b.loop.make_waker([&] { ++runs; });
  timer->start();
  b.hand.add([&] {
    if (open_menu() == nullptr)
      return false;
    ticks = 0;
    waker->wake();
    return true;
  });
  b.hand.add([&] { return ticks >= 5 && runs == 1; });
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, nullptr), L"");
  EXPECT_GE(ticks, 5);
  EXPECT_EQ(runs, 1);
}

TEST_F(Win32Menus, TheEndOfTheProgramClosesTheMenu) {
  const auto ending = b.loop.make_timer(100, [&] { b.loop.quit(); });
  ending->start();
  b.hand.add([] { return false; }); // should it stay open, the hand closes it in the end
  EXPECT_EQ(b.popup_menus.pop_up({item(L"A", L"Á")}, nullptr), L"");
  EXPECT_TRUE(b.loop.quitting());
}

TEST_F(Win32Menus, HundredsOfSkinsAreAllThere) {
  std::vector<MenuItem> items;
  for (int i = 0; i < 600; ++i)
    items.push_back(item(L"S" + std::to_wstring(i), L"Vzhled " + std::to_wstring(i)));
  int count = 0;
  b.while_open([&] {
    count = GetMenuItemCount(open_menu());
    GetWindowRect(seen_windows(L"#32768").front(), &seen);
  });
  b.close_menu();
  EXPECT_EQ(b.popup_menus.pop_up(items, nullptr), L"");
  EXPECT_EQ(count, 600);
  EXPECT_LE(seen.bottom - seen.top, GetSystemMetrics(SM_CYSCREEN));
}

} // namespace
} // namespace lumotune::contract
