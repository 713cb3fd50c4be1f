// SPDX-License-Identifier: LGPL-2.1-or-later
// Lock-free ring buffer of stereo samples: the worker is the single producer, the sound callback the single consumer.
#pragma once

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lumotune::media {

// Positions count frames since the ring was created and never wrap. A frame is two float samples, clipped to -1..1.
// They are stored in 16 bits, which takes half the memory at no audible loss.
class Ring {
public:
  explicit Ring(std::size_t capacity_frames) : samples_(capacity_frames * 2), capacity_(capacity_frames) {}

  [[nodiscard]] std::size_t capacity() const { return capacity_; }

  // Frames available for reading. Any thread; only a snapshot for threads that do not change it.
  [[nodiscard]] std::size_t level() const {
    const std::uint64_t read =
        std::max(read_.load(std::memory_order_acquire), discard_.load(std::memory_order_acquire));
    const std::uint64_t write = write_.load(std::memory_order_acquire);
    return write > read ? static_cast<std::size_t>(write - read) : 0;
  }

  // Producer: how many frames can be written now; `write` takes at most that many and returns how many it took.
  [[nodiscard]] std::size_t room() const {
    return capacity_ -
           static_cast<std::size_t>(write_.load(std::memory_order_relaxed) - read_.load(std::memory_order_acquire));
  }
  std::size_t write(const float* frames, std::size_t count) {
    count = std::min(count, room());
    const std::uint64_t at = write_.load(std::memory_order_relaxed);
    for (std::size_t done = 0; done < count;) {
      const std::size_t offset = static_cast<std::size_t>((at + done) % capacity_);
      const std::size_t piece = std::min(count - done, capacity_ - offset);
      std::transform(frames + done * 2, frames + (done + piece) * 2, &samples_[offset * 2], narrow);
      done += piece;
    }
    write_.store(at + count, std::memory_order_release);
    return count;
  }
  // The positions of the next write and the next read. Any thread.
  [[nodiscard]] std::uint64_t written() const { return write_.load(std::memory_order_acquire); }
  [[nodiscard]] std::uint64_t consumed() const { return read_.load(std::memory_order_acquire); }

  // Producer: drops everything written so far; takes effect when the consumer next runs.
  void discard() { discard_.store(write_.load(std::memory_order_relaxed), std::memory_order_release); }

  // Consumer: reads at most `count` frames and returns how many there were.
  std::size_t read(float* frames, std::size_t count) {
    const std::uint64_t at = skip();
    const std::uint64_t write = write_.load(std::memory_order_acquire);
    count = std::min(count, static_cast<std::size_t>(write - at));
    for (std::size_t done = 0; done < count;) {
      const std::size_t offset = static_cast<std::size_t>((at + done) % capacity_);
      const std::size_t piece = std::min(count - done, capacity_ - offset);
      std::transform(&samples_[offset * 2], &samples_[offset * 2] + piece * 2, frames + done * 2, widened);
      done += piece;
    }
    read_.store(at + count, std::memory_order_release);
    return count;
  }
  // Consumer: carries out a discard and returns the read position. The producer may call it while no consumer runs.
  std::uint64_t skip() {
    std::uint64_t at = read_.load(std::memory_order_relaxed);
    const std::uint64_t discard = discard_.load(std::memory_order_acquire);
    if (discard > at) {
      at = discard;
      read_.store(at, std::memory_order_release);
    }
    return at;
  }

private:
  static constexpr float full_scale = 32767.0F;
  static std::int16_t narrow(float sample) {
    return static_cast<std::int16_t>(std::lrint(std::clamp(sample, -1.0F, 1.0F) * full_scale));
  }
  static float widened(std::int16_t sample) { return static_cast<float>(sample) / full_scale; }

  std::vector<std::int16_t> samples_;
  std::size_t capacity_;
  std::atomic<std::uint64_t> write_ = 0;
  std::atomic<std::uint64_t> read_ = 0;
  std::atomic<std::uint64_t> discard_ = 0;
};

} // namespace lumotune::media
