// SPDX-License-Identifier: LGPL-2.1-or-later
// What the mouse does on the notification-area icon.
#pragma once

#include "base/lumotune_form.h"
#include "menus/menus.h"
#include "skin/chrome.h"

namespace lumotune::menus {

// User-interface thread.
class TrayEvents {
public:
  struct Uses {
    base::LumotuneForm& form;
    skin::Chrome& chrome;
    Menus& menus;
  };
  explicit TrayEvents(const Uses& uses) : uses_(uses) {}

  // A tray event: its message number is the horizontal coordinate in pixels. One that arrives while another is being
  // handled (the menu is open, say) is ignored.
  void TrayIcon_MouseMove(const platform::MouseEvent& event);

private:
  Uses uses_;
  bool busy_ = false;
};

} // namespace lumotune::menus
