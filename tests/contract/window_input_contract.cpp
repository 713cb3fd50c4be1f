// SPDX-License-Identifier: LGPL-2.1-or-later
// Wheel, middle button and keys that are the main window's own, and those that its controls keep.
#include "tests/contract/fixture_input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::PictureKind;
using platform::WindowKey;

struct WindowInputContract : testing::Test {
  Backend b;
  platform::PictureBox& play = made(b.window.make_picture(L"Hraj", PictureKind::button), 3900, 1500);
  platform::ListBox& list = made(b.window.make_list(L"Seznam"), 600, 600);
  std::vector<WindowKey> keys;
  int presses = 0;
  int picks = 0;
  int notches = 0;
  int middle = 0;

  WindowInputContract() {
    list.resize(3000, 900);
    list.set_items({L"a", L"b", L"c"});
    play.on_click = [this] { ++presses; };
    list.on_click = [this] { ++picks; };
    b.window.on_key = [this](WindowKey key) { keys.push_back(key); };
    b.window.on_wheel = [this](int turned) { notches += turned; };
    b.window.on_middle_click = [this] { ++middle; };
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.pass(250); // a window manager has its say first
    b.window.activate();
    EXPECT_TRUE(b.until([this] { return b.has_keyboard(); }));
  }
  template <typename Kind>
  static Kind& made(Kind& control, int x, int y) {
    control.move(x, y);
    control.resize(600, 600);
    return control;
  }
  void go_to(const std::wstring& name) {
    for (int i = 0; i < 4 && b.keyboard_at() != name; ++i)
      b.tab();
    ASSERT_EQ(b.keyboard_at(), name);
  }
};

TEST_F(WindowInputContract, KeysReachTheWindowWhereverTheKeyboardIsInIt) {
  const std::vector<WindowKey> always = {WindowKey::f1, WindowKey::f5, WindowKey::ctrl_c, WindowKey::ctrl_e};
  for (const wchar_t* name : {L"Hraj", L"Seznam"}) {
    go_to(name);
    keys.clear();
    for (const WindowKey key : always)
      press_key(b, key);
    EXPECT_EQ(keys, always);
    EXPECT_EQ(b.keyboard_at(), name);
  }
}

TEST_F(WindowInputContract, SpaceIsAButtonsOwnAndNotAListsOwn) {
  go_to(L"Hraj");
  press_key(b, WindowKey::space);
  EXPECT_EQ(presses, 1);
  EXPECT_TRUE(keys.empty());
  go_to(L"Seznam");
  press_key(b, WindowKey::space);
  EXPECT_EQ(keys, std::vector<WindowKey>{WindowKey::space});
  EXPECT_EQ(presses, 1);
}

TEST_F(WindowInputContract, ArrowsAreAListsOwnAndNotAButtonsOwn) {
  go_to(L"Seznam");
  list.select(0);
  press_key(b, WindowKey::down);
  press_key(b, WindowKey::down);
  press_key(b, WindowKey::up);
  EXPECT_TRUE(keys.empty());
  EXPECT_EQ(list.selected(), 1U);
  EXPECT_EQ(picks, 3);
  go_to(L"Hraj");
  press_key(b, WindowKey::up);
  press_key(b, WindowKey::down);
  EXPECT_EQ(keys, (std::vector<WindowKey>{WindowKey::up, WindowKey::down}));
  EXPECT_EQ(b.keyboard_at(), L"Hraj");
}

TEST_F(WindowInputContract, WithNothingToUseTheWindowHearsAllKeys) {
  play.set_visible(false);
  list.set_visible(false);
  for (const WindowKey key : {WindowKey::space, WindowKey::up, WindowKey::f1})
    press_key(b, key);
  EXPECT_EQ(keys, (std::vector<WindowKey>{WindowKey::space, WindowKey::up, WindowKey::f1}));
}

TEST_F(WindowInputContract, TheWheelTurnsOverTheWindowAndItsControls) {
  wheel(b, 1, nullptr);
  EXPECT_EQ(notches, 1);
  wheel(b, -1, &play);
  EXPECT_EQ(notches, 0);
  wheel(b, 2, &list);
  EXPECT_EQ(notches, 2) << "all of its rows are seen";
}

TEST_F(WindowInputContract, AListWithMoreRowsThanItShowsKeepsTheWheel) {
  list.set_items(std::vector<std::wstring>(9, L"a"));
  wheel(b, -1, &list);
  EXPECT_EQ(notches, 0);
  list.set_visible(false);
  wheel(b, -1, &list);
  EXPECT_EQ(notches, -1) << "not while it is hidden";
}

TEST_F(WindowInputContract, TheMiddleButtonIsTheWindowsEverywhere) {
  middle_click(b, nullptr);
  middle_click(b, &play);
  middle_click(b, &list);
  EXPECT_EQ(middle, 3);
  EXPECT_EQ(presses + picks, 0);
}

} // namespace
} // namespace lumotune::contract
