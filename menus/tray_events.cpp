// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/tray_events.h"

#include "base/busy.h"

#include <cmath>

namespace lumotune::menus {
namespace {

// Window messages as the system delivers them to the icon.
constexpr int left_button_down = 513;
constexpr int right_button_up = 517;

} // namespace

void TrayEvents::TrayIcon_MouseMove(const platform::MouseEvent& event) {
  const base::Busy turn(busy_);
  if (!turn)
    return;
  const auto message = std::lround(event.x / uses_.form.window.twips_per_pixel_x());
  if (message == left_button_down) {
    uses_.chrome.OrbMinMax();
  } else if (message == right_button_up) {
    // The system closes a menu at a click elsewhere only when the menu's window is in the foreground.
    uses_.form.window.activate();
    uses_.menus.open_tray();
  }
}

} // namespace lumotune::menus
