// SPDX-License-Identifier: LGPL-2.1-or-later
// The monitors in the form of platform/common/view_keeper.h. Desktop pixels.
#pragma once

#include "platform/common/view_keeper.h"
#include "platform/win32/win.h"

#include <vector>

namespace lumotune::platform::win32 {

[[nodiscard]] std::vector<Monitor> monitors();

[[nodiscard]] ScreenRect screen_rect(const RECT& rect);

// Of the monitor that shows most of the window, or is nearest to it: without the task bar and its like. Nothing but the
// window's own rectangle where there is no monitor.
[[nodiscard]] RECT work_area(const RECT& window);

// Where the window's upper left corner has to go so that it is wholly on that monitor, in its own size.
[[nodiscard]] POINT place_in_view(const RECT& window);

[[nodiscard]] POINT pixel_point(const ScreenPoint& point);

} // namespace lumotune::platform::win32
