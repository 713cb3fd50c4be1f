// SPDX-License-Identifier: LGPL-2.1-or-later
// Twips and pixels. A twip is 1/1440 inch; dots an inch are the monitor's, or the system's for places on the desktop.
#pragma once

namespace lumotune::platform::win32 {

// Both round to the nearest, so that a value comes back after there and back at 96 dots an inch.
[[nodiscard]] int pixels(int twips, unsigned dpi);
[[nodiscard]] int twips(int pixels, unsigned dpi);

// How many dots an inch a picture is drawn for.
inline constexpr unsigned picture_dpi = 96;

} // namespace lumotune::platform::win32
