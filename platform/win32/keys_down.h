// SPDX-License-Identifier: LGPL-2.1-or-later
// Which keys went down while a control had the keyboard.
#pragma once

#include "platform/win32/win.h"

#include <bitset>

namespace lumotune::platform::win32 {

// A key-up counts when the key can move or choose the selection and was pressed here: Tab moves the focus with its own
// key still down, and the Enter that closed a menu or box comes up afterwards.
class KeysDown {
public:
  explicit KeysDown(bool enter_chooses = false) : enter_chooses_(enter_chooses) {}

  // Every message of the control; true for one that tells of a key which counts and is let go.
  [[nodiscard]] bool let_go(UINT message, WPARAM key) {
    if (message == WM_KILLFOCUS)
      down_.reset();
    if (message == WM_KEYDOWN && key < down_.size() && (can_move(key) || (enter_chooses_ && key == VK_RETURN)))
      down_.set(key);
    if (message != WM_KEYUP || key >= down_.size() || !down_.test(key))
      return false;
    down_.reset(key);
    return true;
  }

private:
  [[nodiscard]] static bool can_move(WPARAM key) {
    return key == VK_BACK || (key >= VK_SPACE && key <= VK_DOWN) || (key >= '0' && key <= 'Z') ||
           (key >= VK_NUMPAD0 && key <= VK_DIVIDE) || (key >= VK_OEM_1 && key <= VK_OEM_102) || key == VK_PACKET;
  }

  bool enter_chooses_;
  std::bitset<256> down_;
};

} // namespace lumotune::platform::win32
