// SPDX-License-Identifier: LGPL-2.1-or-later
// The sound callback: takes samples from the ring, pads with silence, applies the volume.
#pragma once

#include "platform/media/ring.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace lumotune::media {

// Sound plays while the stream the worker lets flow is the one the listener wants. Each side writes its own number, so
// that a stop is silent at once, whatever the worker is doing.
class Mixer {
public:
  Mixer(std::size_t ring_frames, int rate) : ring(ring_frames), rate_(rate) {}

  Ring ring;

  // User-interface thread.
  void want(std::uint64_t stream) { wanted_.store(stream, std::memory_order_release); } // 0: silence
  void set_volume(int percent);                                                         // 0..100
  [[nodiscard]] std::uint64_t heard_ms(std::uint64_t stream) const; // 0 if nothing of it was heard yet

  // Worker thread.
  void let_flow(std::uint64_t stream) { flowing_.store(stream, std::memory_order_release); }
  [[nodiscard]] bool flows() const { return flowing_.load(std::memory_order_acquire) != 0; }
  void set_rate(int rate) {
    rate_.store(rate, std::memory_order_release);
  } // frames per second; only while nothing plays
  [[nodiscard]] int rate() const { return rate_.load(std::memory_order_acquire); }

  // The sound callback's thread: fills `frames` stereo frames. No lock, no allocation, no log. When the ring runs dry
  // the flow stops until the worker starts it again.
  void render(float* out, std::size_t frames) noexcept;

private:
  void ramp(float* out, std::size_t frames, float target) noexcept;

  std::atomic<std::uint64_t> wanted_ = 0;
  std::atomic<std::uint64_t> flowing_ = 0;
  std::atomic<float> volume_ = 1.0F;
  std::atomic<int> rate_;
  std::atomic<std::uint64_t> heard_stream_ = 0;
  std::atomic<std::uint64_t> heard_frames_ = 0;
  float gain_ = 0.0F; // owned by the callback
};

} // namespace lumotune::media
