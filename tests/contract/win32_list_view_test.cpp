// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's mouse and keyboard on a list in columns.
#include "tests/contract/win32_list_view.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

TEST_F(Win32ListViewTest, TheButtonIsToldBeforeTheRowAndTheClickAfterIt) {
  click(list, middle(3));
  EXPECT_EQ(events, L"left0 click3 ");
  events.clear();
  mouse(list, WM_RBUTTONDOWN, middle(5));
  EXPECT_EQ(events, L"right3 ") << "a menu waits until the button is let go";
  EXPECT_EQ(list.selected(), 5U);
  mouse(list, WM_RBUTTONUP, middle(5));
  EXPECT_EQ(events, L"right3 click5 ");
}

TEST_F(Win32ListViewTest, TheSecondColumnBelongsToTheRow) {
  POINT at = middle(4);
  at.x = area(4).left + 150;
  click(list, at);
  EXPECT_EQ(events, L"left0 click4 ");
}

TEST_F(Win32ListViewTest, BesideTheRowsNothingIsClicked) {
  rows.size = 3;
  list.rows_changed();
  list.select(2);
  const POINT below{50, 150};
  click(list, below);
  mouse(list, WM_RBUTTONDOWN, below);
  mouse(list, WM_RBUTTONUP, below);
  mouse(list, WM_LBUTTONDBLCLK, below);
  mouse(list, WM_LBUTTONUP, below);
  EXPECT_EQ(events.find(L"click"), std::wstring::npos) << "neither a click nor a double click";
  EXPECT_EQ(events.find(L"double"), std::wstring::npos);
  EXPECT_EQ(list.selected(), 2U);
}

TEST_F(Win32ListViewTest, ADoubleClickIsToldOnceWhenItIsLetGo) {
  click(list, middle(3));
  mouse(list, WM_LBUTTONDBLCLK, middle(3));
  EXPECT_EQ(events, L"left0 click3 ");
  mouse(list, WM_LBUTTONUP, middle(3));
  EXPECT_EQ(events, L"left0 click3 double3 ");
  mouse(list, WM_LBUTTONUP, middle(3));
  EXPECT_EQ(events, L"left0 click3 double3 ");
}

TEST_F(Win32ListViewTest, EnterIsACharacterAndItsEndNoMove) {
  list.select(7);
  key(VK_RETURN);
  EXPECT_EQ(events, L"key137 ");
}

TEST_F(Win32ListViewTest, ArrowsMoveAndAreTold) {
  list.select(7);
  key(VK_DOWN);
  key(VK_END);
  EXPECT_EQ(events, L"up8 up300 ");
  events.clear();
  SendMessageW(handle(list), WM_KEYUP, VK_TAB, static_cast<LPARAM>(0xc0000001));
  SendMessageW(handle(list), WM_KEYUP, VK_DOWN, static_cast<LPARAM>(0xc0000001));
  EXPECT_EQ(events, L"") << "these went down somewhere else";
}

TEST_F(Win32ListViewTest, TheKeyForMenusIsNoClick) {
  list.on_menu_key = [this] { note(L"menu"); };
  list.select(6);
  const auto asked = [this](LPARAM place) {
    SendMessageW(handle(list), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle(list)), place);
  };
  asked(-1);
  EXPECT_EQ(events, L"menu6 ");
  asked(MAKELPARAM(100, 100)); // the mouse's, which has been told as a press
  EXPECT_EQ(events, L"menu6 ");
}

TEST_F(Win32ListViewTest, TypingFindsARowAmongFiftyThousand) {
  rows.size = 50000;
  list.rows_changed();
  letter(L'ž');
  EXPECT_EQ(list.selected(), 50000U);
}

TEST_F(Win32ListViewTest, TheRowsMayChangeInTheirOwnClick) {
  list.on_click = [this] {
    rows.size = 1;
    list.rows_changed();
  };
  click(list, middle(5));
  EXPECT_EQ(list.selected(), 0U);
  mouse(list, WM_LBUTTONDBLCLK, {40, 100});
  mouse(list, WM_LBUTTONUP, {40, 100});
  EXPECT_EQ(list.selected(), 0U);
}

using Win32ListViewFirst = Win32Framed;

TEST_F(Win32ListViewFirst, ARowSelectedBeforeTheWindowCameIsInSight) {
  ManyRows rows;
  auto& list = window->make_list_view(L"ListView1");
  list.add_column(L"Name", L"Název rádia", 2000);
  list.set_rows(&rows);
  list.select(250);
  place(list, 150, 150, 4500, 3000);
  show();
  const LRESULT top = SendMessageW(handle(list), LVM_GETTOPINDEX, 0, 0);
  const LRESULT page = SendMessageW(handle(list), LVM_GETCOUNTPERPAGE, 0, 0);
  EXPECT_GE(249, top);
  EXPECT_LT(249, top + page);
  window.reset();
}

// What the list is asked that makes it look at every row.
LRESULT CALLBACK count_searches(HWND view, UINT message, WPARAM w, LPARAM l, UINT_PTR /*id*/, DWORD_PTR counted) {
  const bool all_set = message == LVM_SETITEMSTATE && w == static_cast<WPARAM>(-1);
  const bool all_asked = message == LVM_GETNEXTITEM && (l & LVNI_FOCUSED) == 0;
  *reinterpret_cast<int*>(counted) += all_set || all_asked ? 1 : 0;
  return DefSubclassProc(view, message, w, l);
}

TEST_F(Win32ListViewTest, SelectingDoesNotLookThroughAllRows) {
  int searches = 0;
  SetWindowSubclass(handle(list), count_searches, 1, reinterpret_cast<DWORD_PTR>(&searches));
  rows.size = 100'000;
  list.rows_changed();
  for (const std::size_t row : {std::size_t{70'000}, std::size_t{3}, std::size_t{100'000}}) {
    list.select(row);
    EXPECT_EQ(list.selected(), row);
  }
  UpdateWindow(handle(list));
  list.rows_changed();
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_EQ(searches, 0);
  RemoveWindowSubclass(handle(list), count_searches, 1);
}

TEST_F(Win32ListViewTest, ASelectedRowWithoutTheFocusIsStillFoundAndLeft) {
  const auto state = [this](int row, UINT bits) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = bits;
    SendMessageW(handle(list), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  };
  list.select(10);
  state(9, LVIS_SELECTED);
  state(20, LVIS_FOCUSED); // as Ctrl and an arrow key do
  EXPECT_EQ(list.selected(), 10U);
  list.select(0);
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_EQ(SendMessageW(handle(list), LVM_GETSELECTEDCOUNT, 0, 0), 0);
  EXPECT_LT(SendMessageW(handle(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 0);
}

} // namespace
} // namespace lumotune::contract
