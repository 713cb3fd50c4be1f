// SPDX-License-Identifier: LGPL-2.1-or-later
// The notification-area icon and its tooltip.
#pragma once

#include "platform/tray.h"
#include "player/status_display.h"

#include <string>

namespace lumotune::skin {

// User-interface thread.
class TrayIcon final : public player::TitlePort {
public:
  explicit TrayIcon(platform::Tray& tray) : tray_(tray) {}

  void Tray() { tray_.add(L"Lumotune"); }
  void remove() { tray_.remove(); }
  void show_title(const std::wstring& title) override; // updates the tooltip when it changes

private:
  platform::Tray& tray_;
  std::wstring title_;
};

} // namespace lumotune::skin
