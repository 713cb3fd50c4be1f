// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumotune::contract {
namespace {

struct Rows final : platform::RowModel {
  std::size_t size = 0;
  [[nodiscard]] std::size_t count() const override { return size; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override {
    return column == 0 ? L"Rádio " + std::to_wstring(row) : L"Česko";
  }
  [[nodiscard]] bool bold(std::size_t row) const override { return row % 3 == 0; }
};

struct ListViewContract : testing::Test {
  Rows rows; // outlives the window
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
  platform::ListView& list = window->make_list_view(L"ListView1");
  int fired = 0;

  ListViewContract() {
    list.on_click = [this] { ++fired; };
    list.on_double_click = [this] { ++fired; };
    list.on_key_up = [this] { ++fired; };
    list.on_mouse_down = [this](const platform::MouseEvent&) { ++fired; };
    list.on_key_press = [this](wchar_t) { ++fired; };
    list.add_column(L"Name", L"Název rádia", 2000);
    list.add_column(L"zeme", L"Země", 800);
    list.move(150, 150);
    list.resize(4500, 3000);
  }
  void show(std::size_t count) {
    rows.size = count;
    list.set_rows(&rows);
    list.rows_changed();
  }
};

TEST_F(ListViewContract, WithoutRowsNothingCanBeSelected) {
  EXPECT_EQ(list.selected(), 0U);
  list.select(1);
  EXPECT_EQ(list.selected(), 0U);
  list.rows_changed();
  EXPECT_EQ(list.selected(), 0U);
}

TEST_F(ListViewContract, SelectingByProgramFiresNothing) {
  show(300);
  window->set_visible(true);
  list.select(250);
  EXPECT_EQ(list.selected(), 250U);
  list.select(1);
  EXPECT_EQ(list.selected(), 1U);
  list.select(300);
  EXPECT_EQ(list.selected(), 300U);
  b.loop.run_pending();
  EXPECT_EQ(fired, 0);
}

TEST_F(ListViewContract, ARowOutsideSelectsNothing) {
  show(10);
  list.select(5);
  list.select(11);
  EXPECT_EQ(list.selected(), 0U);
  list.select(5);
  list.select(0);
  EXPECT_EQ(list.selected(), 0U);
  list.select(static_cast<std::size_t>(-1));
  EXPECT_EQ(list.selected(), 0U);
}

TEST_F(ListViewContract, OtherRowsAreUnselected) {
  show(10);
  list.select(5);
  show(20);
  EXPECT_EQ(list.selected(), 0U);
  list.select(20);
  list.rows_changed();
  EXPECT_EQ(list.selected(), 0U);
}

TEST_F(ListViewContract, TheModelMayBecomeShorterBeforeItSaysSo) {
  show(300);
  window->set_visible(true);
  list.select(300);
  rows.size = 3;
  b.loop.run_pending();
  EXPECT_EQ(list.selected(), 0U) << "there is no such row any more";
  list.rows_changed();
  list.select(3);
  EXPECT_EQ(list.selected(), 3U);
}

TEST_F(ListViewContract, TheModelMayGo) {
  show(300);
  window->set_visible(true);
  list.select(7);
  list.set_rows(nullptr);
  b.loop.run_pending();
  EXPECT_EQ(list.selected(), 0U);
  list.select(7);
  EXPECT_EQ(list.selected(), 0U);
}

// Each with what was selected then.
TEST_F(ListViewContract, ThePressIsToldBeforeTheRowTheClickAfterItTheDoubleClickLast) {
  show(10);
  std::wstring events;
  const auto note = [&](const std::wstring& what) { events += what + std::to_wstring(list.selected()) + L" "; };
  list.on_mouse_down = [&](const platform::MouseEvent& event) {
    note(event.button == platform::MouseButton::right ? L"right" : L"left");
  };
  list.on_click = [&] { note(L"click"); };
  list.on_double_click = [&] { note(L"double"); };
  window->resize(7500, 6000);
  window->set_visible(true);
  window->activate();
  EXPECT_TRUE(b.until([this] { return b.has_keyboard(*window); }));
  b.pass(250); // a window manager has its say first
  b.press(*window, list, 3);
  EXPECT_TRUE(b.until([&] { return events == L"left0 click3 "; }));
  b.press(*window, list, 5, platform::MouseButton::right);
  EXPECT_TRUE(b.until([&] { return events == L"left0 click3 right3 click5 "; }));
  events.clear();
  b.press_twice(*window, list, 4);
  EXPECT_TRUE(b.until([&] { return events == L"left5 click4 double4 "; }));
  events.clear();
  list.on_click = [&] {
    note(L"click");
    list.select(1);
  };
  b.press_twice(*window, list, 2);
  EXPECT_TRUE(b.until([&] { return events == L"left4 click2 left1 click2 double1 "; }))
      << "the click moved the selection away";
}

TEST_F(ListViewContract, TheTextForNoRowsIsKept) {
  EXPECT_EQ(list.empty_text(), L"");
  list.set_empty_text(L"Žádná rádia & nic");
  window->set_visible(true);
  b.loop.run_pending();
  show(3);
  EXPECT_EQ(list.empty_text(), L"Žádná rádia & nic");
  show(0);
  b.loop.run_pending();
  list.set_empty_text(L"");
  EXPECT_EQ(list.empty_text(), L"");
  EXPECT_EQ(fired, 0);
}

TEST_F(ListViewContract, FiftyThousandRowsAreTaken) {
  window->set_visible(true);
  show(50000);
  list.select(50000);
  b.loop.run_pending();
  EXPECT_EQ(list.selected(), 50000U);
  EXPECT_EQ(fired, 0);
}

} // namespace
} // namespace lumotune::contract
