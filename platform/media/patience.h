// SPDX-License-Identifier: LGPL-2.1-or-later
// How long a stream may take to deliver sound. Pure.
#pragma once

#include <algorithm>
#include <chrono>

namespace lumotune::media {

// No silence is longer than the window, and one and a half windows of waiting must yield sound of at least a quarter of
// one. That gives up on silent servers and on those that trickle bytes or packets, but not on a slow line that still
// delivers sound, nor on one that paused just short of a window.
class Patience {
public:
  using Time = std::chrono::microseconds;

  explicit Patience(Time window = std::chrono::seconds(10)) : window_(window) {}

  // The longest the next read may take.
  [[nodiscard]] Time left() const { return std::min(window_, window_ * 3 / 2 - waited_); }
  // Call after a read that took that long. False when the patience is used up.
  [[nodiscard]] bool waited(Time time) {
    waited_ += time;
    return waited_ < window_ * 3 / 2;
  }
  // A silence of that length, two fifths of a window, is a stall.
  [[nodiscard]] Time stall() const { return window_ * 2 / 5; }
  // The duration of the decoded sound; the duration a packet declares is not trusted.
  void brought(Time sound) {
    sound_ += sound;
    if (sound_ >= window_ / 4)
      waited_ = sound_ = Time(0);
  }

private:
  Time window_;
  Time waited_{0};
  Time sound_{0};
};

} // namespace lumotune::media
