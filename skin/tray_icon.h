// SPDX-License-Identifier: LGPL-2.1-or-later
// What the notification-area icon does.
#pragma once

#include "base/lumotune_form.h"
#include "platform/tray.h"
#include "player/ports.h"
#include "player/status_display.h"
#include "skin/chrome.h"

#include <string>

namespace lumotune::skin {

// User-interface thread.
class TrayIcon final : public player::TitlePort {
public:
  struct Uses {
    base::LumotuneForm& form;
    platform::Tray& tray;
    Chrome& chrome;
    base::MenuTree& menu_tree;
  };
  explicit TrayIcon(const Uses& uses) : uses_(uses) {}

  player::MenuSlot menu;

  void Tray() { uses_.tray.add(L"Lumotune"); }
  void remove() { uses_.tray.remove(); }
  void show_title(const std::wstring& title) override; // modifies the tip when it changes

  // A tray event: its message number is the horizontal coordinate in pixels. One that arrives while another is being
  // handled (the menu is open, say) is ignored.
  void TrayIcon_MouseMove(const platform::MouseEvent& event);

private:
  Uses uses_;
  std::wstring title_;
  bool busy_ = false;
};

} // namespace lumotune::skin
