// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/glide.h"

#include <algorithm>

namespace lumotune::platform {

GlideStep glide_step(std::uint32_t milliseconds, int overflow, double scale) {
  constexpr double stand_ms = 1000;
  constexpr double pixels_a_second = 45;
  if (overflow <= 0)
    return {0, true};
  const double way_ms = overflow / (pixels_a_second * scale) * 1000;
  if (milliseconds >= 2 * stand_ms + way_ms)
    return {0, true};
  const double gone = std::clamp((milliseconds - stand_ms) / way_ms, 0.0, 1.0);
  return {static_cast<int>(gone * overflow), false};
}

} // namespace lumotune::platform
