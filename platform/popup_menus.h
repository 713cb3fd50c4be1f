// SPDX-License-Identifier: LGPL-2.1-or-later
// Pop-up menus: trees of data, from which the user chooses one item.
#pragma once

#include "platform/controls.h"

#include <string>
#include <vector>

namespace lumotune::platform {

struct MenuItem {
  std::wstring name;    // designer name, unique in its menu
  std::wstring caption; // shown as it is: "&" is a letter
  bool checked = false;
  bool enabled = true;
  bool visible = true;
  std::vector<MenuItem> children; // a submenu when there are any
  bool separator = false;         // a line; its caption is not shown
};

// User-interface thread.
class PopupMenus {
public:
  PopupMenus() = default;
  PopupMenus(const PopupMenus&) = delete;
  PopupMenus& operator=(const PopupMenus&) = delete;
  virtual ~PopupMenus() = default;

  // Opens a menu at the pointer; below the anchor (at the selected row of a list) when the last input was the keyboard,
  // and in the corner of its window where the anchor is out of sight.
  // Waits while events run, so everything may have changed afterwards. The chosen item's name; empty when it was closed
  // without a choice, when nothing in it is visible, or when another menu is open already.
  [[nodiscard]] virtual std::wstring pop_up(const std::vector<MenuItem>& items, const Control* anchor) = 0;
};

} // namespace lumotune::platform
