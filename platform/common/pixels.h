// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace lumotune::platform {

// A picture in memory: whole rows, the top one first; a pixel is 0xAARRGGBB, its colours multiplied by its opacity.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> values; // width times height
};

} // namespace lumotune::platform
