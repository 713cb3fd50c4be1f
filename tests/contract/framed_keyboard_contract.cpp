// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the keyboard is in a framed window, that it keeps its place, and that keys go nowhere else.
#include "tests/contract/fixture.h"
#include "tests/contract/framed_steps.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumotune::contract {
namespace {

struct FiveRows final : platform::RowModel {
  [[nodiscard]] std::size_t count() const override { return 5; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t /*column*/) const override {
    return L"Rádio " + std::to_wstring(row);
  }
  [[nodiscard]] bool bold(std::size_t /*row*/) const override { return false; }
};

// Made in another order than they are seen in.
struct FramedKeyboardContract : testing::Test {
  FiveRows rows; // outlives the window
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
  platform::Button& button = placed(window->make_button(L"Tlacitko"), 150, 3600, 1500, 375);
  platform::ListView& list = placed(window->make_list_view(L"Seznam"), 3600, 150, 3000, 3000);
  platform::TreeView& tree = placed(window->make_tree(L"Strom"), 150, 150, 3000, 3000);
  int moved = 0;

  FramedKeyboardContract() {
    list.add_column(L"Name", L"Název rádia", 2000);
    list.set_rows(&rows);
    list.rows_changed();
    for (const wchar_t* key : {L"a", L"b", L"c"})
      EXPECT_TRUE(tree.add(key, L"", L"Kategorie rádií"));
    list.on_key_up = [this] { ++moved; };
    tree.on_key_up = [this] { ++moved; };
    window->resize(7500, 6000);
  }
};

TEST_F(FramedKeyboardContract, ActivatingGivesItToTheStopMadeFirstAndTabGoesTheWayTheEyeReads) {
  EXPECT_EQ(b.keyboard_at(*window), L"");
  bring_up(b, *window);
  EXPECT_EQ(b.keyboard_at(*window), L"Tlacitko");
  for (const wchar_t* next : {L"Strom", L"Seznam", L"Tlacitko"}) {
    b.tab(*window);
    EXPECT_EQ(b.keyboard_at(*window), next);
  }
  for (const wchar_t* before : {L"Seznam", L"Strom", L"Tlacitko"}) {
    b.tab(*window, true);
    EXPECT_EQ(b.keyboard_at(*window), before);
  }
}

TEST_F(FramedKeyboardContract, ItIsStillThereAfterAnotherWindowHidingAndMinimising) {
  bring_up(b, *window);
  b.tab(*window);
  b.tab(*window);
  b.leave(*window);
  EXPECT_EQ(b.keyboard_at(*window), L"");
  bring_up(b, *window);
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
  window->set_visible(false);
  EXPECT_TRUE(b.until([this] { return !b.has_keyboard(*window); }));
  bring_up(b, *window);
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
  b.minimize(*window);
  EXPECT_TRUE(b.until([this] { return !b.has_keyboard(*window); }));
  bring_up(b, *window);
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
}

TEST_F(FramedKeyboardContract, AHiddenWindowGetsNone) {
  window->activate();
  b.pass(50);
  EXPECT_FALSE(b.has_keyboard(*window));
  EXPECT_EQ(b.keyboard_at(*window), L"");
}

TEST_F(FramedKeyboardContract, APressBringsItToTheListAndToTheTree) {
  bring_up(b, *window);
  b.press(*window, list, 3);
  EXPECT_TRUE(b.until([this] { return b.keyboard_at(*window) == L"Seznam"; }));
  EXPECT_EQ(list.selected(), 3U);
  b.press(*window, tree, 2);
  EXPECT_TRUE(b.until([this] { return b.keyboard_at(*window) == L"Strom"; }));
  EXPECT_EQ(tree.selected(), 2U);
  b.tab(*window);
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
}

TEST_F(FramedKeyboardContract, AnArrowMovesOnlyWhereTheKeyboardIs) {
  list.select(1);
  tree.select(1);
  const auto press_in_vain = [this](const char* where) {
    b.arrow(*window, list);
    b.arrow(*window, tree);
    EXPECT_EQ(list.selected(), 1U) << where;
    EXPECT_EQ(tree.selected(), 1U) << where;
    EXPECT_EQ(moved, 0) << where;
  };
  press_in_vain("hidden");
  bring_up(b, *window);
  press_in_vain("at the button");
  b.tab(*window);
  b.leave(*window);
  press_in_vain("another window is in front");
  bring_up(b, *window);
  b.arrow(*window, tree);
  EXPECT_EQ(tree.selected(), 2U);
  EXPECT_EQ(list.selected(), 1U);
  EXPECT_EQ(moved, 1);
  b.tab(*window);
  b.arrow(*window, list);
  EXPECT_EQ(list.selected(), 2U);
  EXPECT_EQ(moved, 2);
}

TEST_F(FramedKeyboardContract, TheMouseReachesOnlyWhatIsSeenAndEnabled) {
  const auto press_in_vain = [this](const char* why) {
    b.press(*window, list, 3);
    b.press_twice(*window, list, 4);
    b.pass(50);
    EXPECT_EQ(list.selected(), 0U) << why;
  };
  press_in_vain("hidden window");
  bring_up(b, *window);
  list.set_visible(false);
  press_in_vain("hidden list");
  list.set_visible(true);
  list.set_enabled(false);
  press_in_vain("disabled list");
  list.set_enabled(true);
  b.minimize(*window);
  press_in_vain("icon");
  bring_up(b, *window);
  b.press(*window, list, 3);
  EXPECT_TRUE(b.until([this] { return list.selected() == 3; }));
}

} // namespace
} // namespace lumotune::contract
