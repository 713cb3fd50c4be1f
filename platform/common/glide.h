// SPDX-License-Identifier: LGPL-2.1-or-later
// How a line of text that is too long passes once through its place. Pure.
#pragma once

#include <cstdint>

namespace lumotune::platform {

struct GlideStep {
  int offset = 0;    // pixels that the text lies further to the left
  bool over = false; // it has come to rest
};

// Stands for a second, goes to its end at 45 pixels a second (of 96 dots an inch), stands again and comes back at once.
// `milliseconds` since its start; `overflow`: pixels that have no room, above 0; `scale`: 1 at 96 dots an inch.
[[nodiscard]] GlideStep glide_step(std::uint32_t milliseconds, int overflow, double scale);

} // namespace lumotune::platform
