// SPDX-License-Identifier: LGPL-2.1-or-later
// Where windows lie among the monitors. Pixels of the desktop.
#pragma once

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

// The nearest place at which a length lies within the bounds, from their start where it is too long.
[[nodiscard]] LONG moved_within(LONG start, LONG length, LONG low, LONG high);

// Of the monitor that shows most of the window, or is nearest to it: without the task bar and its like.
[[nodiscard]] RECT work_area(const RECT& window);

// Whether some monitor shows enough of the window to take hold of it with the mouse: `piece` in both directions.
[[nodiscard]] bool in_view(const RECT& window, int piece);

// Whether the monitors together show at least half of the window.
[[nodiscard]] bool mostly_in_view(const RECT& window);

// Where the window has to go so that it is wholly on the nearest monitor, in its own size.
[[nodiscard]] POINT place_in_view(const RECT& window);

} // namespace lumotune::platform::win32
