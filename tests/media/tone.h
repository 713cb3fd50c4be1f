// SPDX-License-Identifier: LGPL-2.1-or-later
// How much of some sound is one tone.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace lumotune::media::rig {

// The share of the sound's power at that frequency (Goertzel): 1 for a pure tone, near 0 for another or for silence.
[[nodiscard]] inline double tone_share(const std::vector<float>& samples, double hertz, double rate) {
  const double step = 2.0 * std::acos(-1.0) * hertz / rate;
  const double factor = 2.0 * std::cos(step);
  double before = 0;
  double last = 0;
  double power = 0;
  for (const float sample : samples) {
    const double now = sample + factor * last - before;
    before = last;
    last = now;
    power += static_cast<double>(sample) * sample;
  }
  const auto count = static_cast<double>(samples.size());
  if (power / (count + 1) < 1e-4)
    return 0;
  return 2.0 * (last * last + before * before - factor * last * before) / (count * power);
}

} // namespace lumotune::media::rig
