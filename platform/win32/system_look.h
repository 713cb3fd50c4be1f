// SPDX-License-Identifier: LGPL-2.1-or-later
// What newer systems draw around and in our windows when they are asked; elsewhere nothing happens.
#pragma once

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

// Round corners, and the shadow that goes with them, where the system draws such (Windows 11).
void round_corners(HWND window);

// Dark scroll bars of a control on a dark ground, or the usual ones.
void set_scroll_bar_theme(HWND control, bool dark);

} // namespace lumotune::platform::win32
