// SPDX-License-Identifier: LGPL-2.1-or-later
// A sound device without sound: it takes samples at its pace, keeps the newest, and misbehaves to order.
#pragma once

#include "platform/media/output.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace lumotune::media::rig {

// The calls of a sound system.
enum class Call { none, make, rate, open, start, volume, stop, close };

// Shared by the test and the outputs that the engine makes. Any thread.
class TestDevice : public std::enable_shared_from_this<TestDevice> {
public:
  static constexpr int block_ms = 10;

  // All memory it will need is taken now, so that a test can see the player's.
  TestDevice() {
    heard_.resize(static_cast<std::size_t>(11) * 48000);
    heard_.clear();
  }

  // Knobs.
  std::atomic<bool> present = true;
  std::atomic<bool> broken = false; // the one that is open now goes away
  std::atomic<bool> throws = false; // no memory for another one
  std::atomic<int> rate = 48000;
  std::atomic<int> opened = 0;                  // how often
  std::atomic<std::uint64_t> silent_frames = 0; // played, and nothing in them

  void hang_in(Call call); // it does not return until this is set to another one
  [[nodiscard]] int hanging() const { return hanging_; }

  [[nodiscard]] std::function<std::unique_ptr<AudioOutput>()> factory();

  [[nodiscard]] bool hears(double hertz) const; // the newest 0.3 s are that tone
  [[nodiscard]] bool silent() const;            // the newest 0.1 s are nothing
  // Whether that tone was heard in any of the blocks since `forget`, by itself.
  [[nodiscard]] bool has_heard(double hertz) const;
  void forget();
  [[nodiscard]] std::uint64_t loud_blocks() const { return loud_blocks_; }
  [[nodiscard]] std::uint64_t blocks() const { return blocks_; }

  // From an output.
  void take(const std::vector<float>& stereo);
  void enter(Call call);

private:
  [[nodiscard]] std::vector<float> newest(int milliseconds) const;

  std::mutex hang_mutex_;
  std::condition_variable hang_changed_;
  Call hangs_in_ = Call::none;
  std::atomic<int> hanging_ = 0;

  mutable std::mutex mutex_;
  std::vector<float> heard_; // left
  std::atomic<std::uint64_t> loud_blocks_ = 0;
  std::atomic<std::uint64_t> blocks_ = 0;
};

} // namespace lumotune::media::rig
