// SPDX-License-Identifier: LGPL-2.1-or-later
// Wheel, middle button and keys that are the main window's own, whichever of its controls they reach first.
#include "platform/win32/window.h"

#include <windowsx.h>

#include <optional>

namespace lumotune::platform::win32 {
namespace {

bool held(int key) {
  return GetKeyState(key) < 0;
}

std::optional<WindowKey> key_of(WPARAM code) {
  if (held(VK_SHIFT) || held(VK_MENU))
    return std::nullopt;
  if (held(VK_CONTROL)) {
    switch (code) {
    case L'C':
      return WindowKey::ctrl_c;
    case L'E':
      return WindowKey::ctrl_e;
    default:
      return std::nullopt;
    }
  }
  switch (code) {
  case VK_SPACE:
    return WindowKey::space;
  case VK_UP:
    return WindowKey::up;
  case VK_DOWN:
    return WindowKey::down;
  case VK_F1:
    return WindowKey::f1;
  case VK_F5:
    return WindowKey::f5;
  default:
    return std::nullopt;
  }
}

bool is_arrow(WindowKey key) {
  return key == WindowKey::up || key == WindowKey::down;
}

} // namespace

bool Window::window_input(const MSG& message) {
  switch (message.message) {
  case WM_KEYDOWN:
    return key_pressed(message);
  case WM_MOUSEWHEEL:
    return wheel_turned(message);
  case WM_MBUTTONDOWN:
  case WM_MBUTTONDBLCLK: // a quick second click
    fire(on_middle_click);
    return true;
  default:
    return false;
  }
}

bool Window::key_pressed(const MSG& message) {
  const auto key = key_of(message.wParam);
  if (!key.has_value() || !on_key)
    return false;
  const ChildWindow* child = child_of(GetFocus());
  const bool is_list = dynamic_cast<const ListBox*>(child) != nullptr;
  if (is_arrow(*key) ? is_list : *key == WindowKey::space && child != nullptr && child->pressable() && !is_list)
    return false;
  const bool repeated = (message.lParam & 0x40000000) != 0;
  if (!repeated || is_arrow(*key))
    fire([handler = on_key, pressed = *key] { handler(pressed); });
  return true;
}

// The system sends it to the window under the pointer or, as the user chooses, to the one with the keyboard, wherever
// the pointer is.
bool Window::wheel_turned(const MSG& message) {
  POINT place{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  const HWND under = WindowFromPoint(place);
  if (!on_wheel || (under != window_ && IsChild(window_, under) == 0))
    return false;
  const auto* list = dynamic_cast<const ListBox*>(child_of(under));
  if (list != nullptr && list->scrolls()) {
    if (message.hwnd != list->handle())
      SendMessageW(list->handle(), WM_MOUSEWHEEL, message.wParam, message.lParam);
    return message.hwnd != list->handle();
  }
  const int turned = GET_WHEEL_DELTA_WPARAM(message.wParam);
  if ((turned < 0) != (wheel_rest_ < 0))
    wheel_rest_ = 0; // it turns back
  wheel_rest_ += turned;
  const int notches = wheel_rest_ / WHEEL_DELTA;
  wheel_rest_ %= WHEEL_DELTA;
  if (notches != 0)
    fire([handler = on_wheel, notches] { handler(notches); });
  return true;
}

} // namespace lumotune::platform::win32
