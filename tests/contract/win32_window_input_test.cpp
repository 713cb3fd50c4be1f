// SPDX-License-Identifier: LGPL-2.1-or-later
// Fine wheels, keys held down and keys with others, on the system's own messages.
#include "tests/contract/fixture_input.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::WindowKey;

struct Win32WindowInput : testing::Test {
  Backend b;
  std::vector<WindowKey> keys;
  std::vector<int> notches;

  Win32WindowInput() {
    b.window.on_key = [this](WindowKey key) { keys.push_back(key); };
    b.window.on_wheel = [this](int turned) { notches.push_back(turned); };
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.pass(250);
    b.window.activate();
    EXPECT_TRUE(b.until([this] { return b.has_keyboard(); }));
  }
};

TEST_F(Win32WindowInput, StepsOfAFineWheelAddUpToNotches) {
  for (const int delta : {40, 40, 40, -60, -60, 100, -119})
    wheel_by(b, delta, nullptr);
  EXPECT_EQ(notches, (std::vector<int>{1, -1}));
}

TEST_F(Win32WindowInput, AKeyHeldDownComesOnceButForTheArrows) {
  constexpr LPARAM again = 0x40000001;
  press_code(b, VK_F1);
  press_code(b, VK_F1, again);
  press_code(b, VK_SPACE, again);
  press_code(b, VK_UP);
  press_code(b, VK_UP, again);
  EXPECT_EQ(keys, (std::vector<WindowKey>{WindowKey::f1, WindowKey::up, WindowKey::up}));
}

TEST_F(Win32WindowInput, KeysWithOthersAreNotOurs) {
  for (const int other : {VK_SHIFT, VK_MENU, VK_CONTROL}) {
    hold_key(other, true);
    press_code(b, VK_F1);
    press_code(b, VK_SPACE);
    hold_key(other, false);
  }
  hold_key(VK_CONTROL, true);
  hold_key(VK_MENU, true); // as AltGr does
  press_code(b, L'C');
  hold_key(VK_CONTROL, false);
  hold_key(VK_MENU, false);
  press_code(b, L'C');
  EXPECT_TRUE(keys.empty());
}

} // namespace
} // namespace lumotune::contract
