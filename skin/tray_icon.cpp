// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/tray_icon.h"

#include "base/busy.h"

#include <cmath>

namespace lumotune::skin {
namespace {

constexpr int left_button_down = 513;
constexpr int right_button_up = 517;

} // namespace

void TrayIcon::show_title(const std::wstring& title) {
  if (title == title_)
    return;
  title_ = title;
  uses_.tray.modify(title);
}

void TrayIcon::TrayIcon_MouseMove(const platform::MouseEvent& event) {
  if (busy_)
    return;
  const base::Busy guard(busy_);
  const auto message = std::lround(event.x / uses_.form.window.twips_per_pixel_x());
  if (message == left_button_down) {
    uses_.chrome.OrbMinMax();
  } else if (message == right_button_up) {
    // The system closes a menu at a click elsewhere only when the menu's window is in the foreground.
    uses_.form.window.activate();
    uses_.menu_tree.item(L"LT_Volume").visible = true;
    menu->open_tray();
  }
}

} // namespace lumotune::skin
