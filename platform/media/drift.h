// SPDX-License-Identifier: LGPL-2.1-or-later
// Clock drift: the station's clock and the sound device's always differ slightly, so that over hours a live stream's
// buffer would run dry or grow. Pure.
#pragma once

#include <cstdint>

namespace lumotune::media {

// From the buffer's level, decides how much slower or faster to play, in thousandths: two are far below what is
// audible. Hysteresis: within the band nothing is corrected, so that a stream in step is not resampled.
class DriftControl {
public:
  static constexpr int correction = 2;

  [[nodiscard]] int step(std::uint32_t level_ms) {
    constexpr std::uint32_t low = 1000;
    constexpr std::uint32_t low_enough = 1800;
    constexpr std::uint32_t high = 6000;
    constexpr std::uint32_t high_enough = 5000;
    if (now_ == 0)
      now_ = level_ms < low ? -1 : (level_ms > high ? 1 : 0);
    else if ((now_ < 0 && level_ms >= low_enough) || (now_ > 0 && level_ms <= high_enough))
      now_ = 0;
    return now_ * correction;
  }

private:
  int now_ = 0; // -1 plays slower and lets the buffer grow, 1 plays faster
};

} // namespace lumotune::media
