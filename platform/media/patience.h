// SPDX-License-Identifier: LGPL-2.1-or-later
// How long a stream may keep us waiting. Pure.
#pragma once

#include <chrono>

namespace lumotune::media {

// Waiting is allowed as long as it brings sound: each window of it at least a quarter of its length. So neither silence
// nor a server that drips, be it bytes or packets, holds a listener; a slow line that still brings sound does.
class Patience {
public:
  using Time = std::chrono::microseconds;

  explicit Patience(Time window = std::chrono::seconds(10)) : window_(window) {}

  // The longest that the next read may take.
  [[nodiscard]] Time left() const { return window_ - waited_; }
  // After a read that took that long. False when it is over.
  [[nodiscard]] bool waited(Time time) {
    waited_ += time;
    return waited_ < window_;
  }
  // What was decoded of it: a packet's own word for its length may be a lie.
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
