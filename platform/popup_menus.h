// SPDX-License-Identifier: LGPL-2.1-or-later
// Pop-up menus, given as trees of items, of which the user chooses one.
#pragma once

#include "platform/controls.h"

#include <string>
#include <vector>

namespace lumotune::platform {

struct MenuItem {
  std::wstring name;    // designer name, unique in its menu
  std::wstring caption; // shown literally: "&" is an ordinary character
  bool checked = false;
  bool enabled = true;
  bool visible = true;
  std::vector<MenuItem> children; // a submenu when not empty
  bool separator = false;         // a separator line; its caption is not shown
};

// User-interface thread.
class PopupMenus {
public:
  PopupMenus() = default;
  PopupMenus(const PopupMenus&) = delete;
  PopupMenus& operator=(const PopupMenus&) = delete;
  virtual ~PopupMenus() = default;

  // Opens a menu at the pointer; if the last input was the keyboard, below the anchor (at the selected row of a list),
  // or in the corner of its window when the anchor is not visible.
  // Waits while events run, so any state may have changed afterwards. Returns the chosen item's name; empty when the
  // menu is closed without a choice, when nothing in it is visible, or when another menu is already open.
  [[nodiscard]] virtual std::wstring pop_up(const std::vector<MenuItem>& items, const Control* anchor) = 0;
};

} // namespace lumotune::platform
