// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's wheel, middle button and keys on the main window.
//   wheel(backend, notches, control), middle_click(backend, control), press_key(backend, key)
// `control` is nullptr for the background at its upper left corner.
#pragma once

#include "tests/contract/fixture.h"

namespace lumotune::contract {

#ifdef _WIN32

// The pointer moves each time: two presses at one place would be a double click.
inline void aim_at(Backend& b, const platform::Control* control) {
  static int aimed = 0;
  RECT area{};
  GetWindowRect(control == nullptr ? b.window.handle() : b.window.handle_of(*control), &area);
  SetCursorPos(area.left + 4 + (aimed++ % 2) * 8, area.top + 6);
  b.pass(50);
}

inline void wheel_by(Backend& b, int delta, const platform::Control* control) {
  aim_at(b, control);
  mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(delta), 0);
  b.pass(50);
}

inline void wheel(Backend& b, int notches, const platform::Control* control) {
  wheel_by(b, notches * WHEEL_DELTA, control);
}

inline void middle_click(Backend& b, const platform::Control* control) {
  aim_at(b, control);
  mouse_event(MOUSEEVENTF_MIDDLEDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_MIDDLEUP, 0, 0, 0, 0);
  b.pass(50);
}

inline WPARAM code_of(platform::WindowKey key) {
  switch (key) {
  case platform::WindowKey::space:
    return VK_SPACE;
  case platform::WindowKey::up:
    return VK_UP;
  case platform::WindowKey::down:
    return VK_DOWN;
  case platform::WindowKey::f1:
    return VK_F1;
  case platform::WindowKey::f5:
    return VK_F5;
  case platform::WindowKey::ctrl_c:
    return L'C';
  case platform::WindowKey::ctrl_e:
    return L'E';
  }
  return 0;
}

inline void hold_key(int key, bool down) {
  BYTE keys[256];
  GetKeyboardState(keys);
  keys[key] = down ? 0x80 : 0;
  SetKeyboardState(keys);
}

inline void press_code(Backend& b, WPARAM code, LPARAM how = 1) {
  PostMessageW(GetFocus(), WM_KEYDOWN, code, how);
  b.loop.run_pending();
  PostMessageW(GetFocus(), WM_KEYUP, code, static_cast<LPARAM>(0xc0000001));
  b.loop.run_pending();
}

inline void press_key(Backend& b, platform::WindowKey key) {
  const bool with_ctrl = key == platform::WindowKey::ctrl_c || key == platform::WindowKey::ctrl_e;
  hold_key(VK_CONTROL, with_ctrl);
  press_code(b, code_of(key));
  hold_key(VK_CONTROL, false);
}

#else

inline void wheel(Backend& b, int notches, const platform::Control* control) {
  (void)b.window.user_wheel(notches, control == nullptr ? L"" : control->name());
}

inline void middle_click(Backend& b, const platform::Control* /*control*/) {
  (void)b.window.user_middle_click();
}

inline void press_key(Backend& b, platform::WindowKey key) {
  (void)b.window.user_key(key);
}

#endif

} // namespace lumotune::contract
