// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/tray_icon.h"

namespace lumotune::skin {

void TrayIcon::show_title(const std::wstring& title) {
  if (title == title_)
    return;
  title_ = title;
  tray_.modify(title);
}

} // namespace lumotune::skin
