// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/controls.h"
#include "platform/win32/win.h"

#include <cstdint>

namespace lumotune::platform::win32 {

// Of the moment: a system colour may change. A number that the system has no colour for is black.
[[nodiscard]] inline COLORREF colour_ref(Colour colour) {
  const auto value = static_cast<std::uint32_t>(colour);
  return (value & system_colour_flag) != 0 ? GetSysColor(static_cast<int>(value & 0xff)) : value & 0xffffff;
}

} // namespace lumotune::platform::win32
