// SPDX-License-Identifier: LGPL-2.1-or-later
// The reading order of a window's controls, in which Tab visits them.
#pragma once

#include "platform/controls.h"

#include <cstddef>
#include <vector>

namespace lumotune::platform {

// The indices of the rectangles in reading order: rows from the top, each from the left; a column is read to its end
// before the next one. Those that lie over each other keep the order in which they are given.
[[nodiscard]] std::vector<std::size_t> reading_order(const std::vector<TwipsRect>& places);

} // namespace lumotune::platform
