// SPDX-License-Identifier: LGPL-2.1-or-later
// A framed window under Win32 and the user's hands on it, as window messages.
#pragma once

#include "tests/contract/fixture_win32.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumotune::contract {

struct Win32Framed : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");

  [[nodiscard]] HWND handle(const platform::Control& control) const { return real().handle_of(control); }
  [[nodiscard]] HWND form() const { return real().handle(); }
  void show() {
    window->set_visible(true);
    window->activate();
    EXPECT_TRUE(b.until([this] { return GetForegroundWindow() == form(); }));
    b.pass(Backend::window_manager_ms);
  }
  static void place(platform::Control& control, int left, int top, int width, int height) {
    control.move(left, top);
    control.resize(width, height);
  }
  // A key pressed and let go, through the loop.
  void key(WPARAM code) {
    const HWND target = GetFocus();
    PostMessageW(target, WM_KEYDOWN, code, 1);
    b.loop.run_pending();
    PostMessageW(GetFocus(), WM_KEYUP, code, static_cast<LPARAM>(0xc0000001));
    b.loop.run_pending();
  }
  void letter(wchar_t character) {
    PostMessageW(GetFocus(), WM_CHAR, character, 1);
    b.loop.run_pending();
  }
  void mouse(const platform::Control& control, UINT message, POINT at) {
    PostMessageW(handle(control), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(at.x, at.y));
    b.loop.run_pending();
  }
  void click(const platform::Control& control, POINT at) {
    mouse(control, WM_LBUTTONDOWN, at);
    mouse(control, WM_LBUTTONUP, at);
  }

private:
  [[nodiscard]] const platform::win32::FramedWindow& real() const {
    return dynamic_cast<const platform::win32::FramedWindow&>(*window);
  }
};

} // namespace lumotune::contract
