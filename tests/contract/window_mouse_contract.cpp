// SPDX-License-Identifier: LGPL-2.1-or-later
// The mouse on the main window's controls.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

TEST(WindowMouseContract, ItReachesNoControlOfAWindowThatIsOutOfSight) {
  Backend b;
  int clicks = 0;
  platform::Button& button = b.window.make_button(L"Command1");
  button.resize(1500, 600);
  button.on_click = [&] { ++clicks; };
  b.window.move(3000, 3000);
  b.press(button);
  EXPECT_EQ(clicks, 0) << "never shown";
  b.window.set_visible(true);
  b.pass(250); // a window manager has its say first
  b.press(button);
  EXPECT_EQ(clicks, 1);
  b.window.set_state(platform::WindowState::minimized);
  b.pass(250);
  b.press(button);
  EXPECT_EQ(clicks, 1) << "minimised";
  b.window.set_visible(true);
  b.pass(250);
  b.press(button);
  EXPECT_EQ(clicks, 2);
  b.window.set_visible(false);
  b.pass(250);
  b.press(button);
  EXPECT_EQ(clicks, 2) << "hidden";
}

} // namespace
} // namespace lumotune::contract
