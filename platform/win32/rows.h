// SPDX-License-Identifier: LGPL-2.1-or-later
// How rows of trees and lists look.
#pragma once

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

inline constexpr int row_height = 270; // twips, at the least: to be hit by a finger or an unsteady hand

// The ground of the selected row while its control has not the keyboard. The system's own is hardly to be seen in some
// sets of colours.
[[nodiscard]] inline COLORREF resting_selection() {
  const COLORREF ground = GetSysColor(COLOR_WINDOW);
  const COLORREF full = GetSysColor(COLOR_HIGHLIGHT);
  const auto mix = [](int one, int other) { return static_cast<BYTE>((3 * one + other) / 4); };
  return RGB(mix(GetRValue(ground), GetRValue(full)), mix(GetGValue(ground), GetGValue(full)),
             mix(GetBValue(ground), GetBValue(full)));
}

} // namespace lumotune::platform::win32
