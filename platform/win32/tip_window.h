// SPDX-License-Identifier: LGPL-2.1-or-later
// Tool tips: the window that shows them, and those of a list's cells.
#pragma once

#include "platform/win32/win.h"

#include <cstddef>
#include <string>

namespace lumotune::platform::win32 {

inline constexpr int tip_width = 6000;                   // twips, of a line
inline constexpr std::size_t most_tip_characters = 1000; // of a tip; more is cut

// Without an owner: an owned window in the topmost layer would keep this one out of it. The caller destroys it.
[[nodiscard]] HWND make_tip_window();

// The whole text of a list's cell that is too narrow for it, shown while the pointer rests there.
class CellTip {
public:
  CellTip() = default;
  CellTip(const CellTip&) = delete;
  CellTip& operator=(const CellTip&) = delete;
  ~CellTip();

  // The pointer has come to this part of the list, in pixels of its client area, with this message. The width,
  // in pixels, is that of the longest line shown.
  void offer(HWND list, const RECT& cell, const std::wstring& text, int width, const MSG& move);
  void withdraw(); // what is shown goes, until the next offer

private:
  HWND window_ = nullptr; // made by the first offer
  HWND list_ = nullptr;   // that has an offer
};

} // namespace lumotune::platform::win32
