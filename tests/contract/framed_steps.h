// SPDX-License-Identifier: LGPL-2.1-or-later
// What the suites of framed windows do again and again.
#pragma once

#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {

// In twips, relative to the window's content.
template <typename Kind>
Kind& placed(Kind& control, int left, int top, int width, int height) {
  control.move(left, top);
  control.resize(width, height);
  return control;
}

// Shows the window and waits until it has the keyboard.
inline void bring_up(Backend& b, platform::FramedWindow& window) {
  window.set_visible(true);
  window.activate();
  EXPECT_TRUE(b.until([&] { return b.has_keyboard(window); }));
  b.pass(250); // a window manager has its say first
}

} // namespace lumotune::contract
