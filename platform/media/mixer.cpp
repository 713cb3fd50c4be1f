// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/mixer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace lumotune::media {

// Loudness is perceived by ratios: a square law is close enough, and keeps 0 silent and 100 unchanged.
void Mixer::set_volume(int percent) {
  const float part = static_cast<float>(std::clamp(percent, 0, 100)) / 100.0F;
  volume_.store(part * part, std::memory_order_release);
}

std::uint64_t Mixer::heard_ms(std::uint64_t stream) const {
  if (stream == 0 || heard_stream_.load(std::memory_order_acquire) != stream)
    return 0;
  const auto rate = static_cast<std::uint64_t>(std::max(rate_.load(std::memory_order_relaxed), 1));
  return heard_frames_.load(std::memory_order_acquire) * 1000 / rate;
}

// A full ramp takes 5 ms: short enough for a stop, long enough not to click.
void Mixer::ramp(float* out, std::size_t frames, float target) noexcept {
  const float step = 200.0F / static_cast<float>(std::max(rate_.load(std::memory_order_relaxed), 1));
  if (gain_ == target && target == 1.0F)
    return;
  for (std::size_t i = 0; i < frames; ++i) {
    gain_ = gain_ < target ? std::min(gain_ + step, target) : std::max(gain_ - step, target);
    out[i * 2] *= gain_;
    out[i * 2 + 1] *= gain_;
  }
}

void Mixer::render(float* out, std::size_t frames) noexcept {
  const std::uint64_t stream = flowing_.load(std::memory_order_acquire);
  const bool plays = stream != 0 && stream == wanted_.load(std::memory_order_acquire);
  std::size_t filled = 0;
  if (plays || (stream != 0 && gain_ > 0.0F)) {
    filled = ring.read(out, frames);
    ramp(out, filled, plays ? volume_.load(std::memory_order_acquire) : 0.0F);
  } else {
    (void)ring.skip(); // carries out a pending discard
    gain_ = 0.0F;
  }
  std::memset(out + filled * 2, 0, (frames - filled) * 2 * sizeof(float));
  if (!plays)
    return;
  if (heard_stream_.load(std::memory_order_relaxed) != stream) {
    heard_frames_.store(0, std::memory_order_release);
    heard_stream_.store(stream, std::memory_order_release);
  }
  heard_frames_.fetch_add(filled, std::memory_order_release);
  if (filled < frames) {
    std::uint64_t expected = stream;
    flowing_.compare_exchange_strong(expected, 0, std::memory_order_acq_rel);
    gain_ = 0.0F;
  }
}

} // namespace lumotune::media
