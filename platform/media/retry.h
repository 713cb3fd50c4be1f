// SPDX-License-Identifier: LGPL-2.1-or-later
// Back-off between reconnection attempts. Pure.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace lumotune::media {

// The delays grow to fifteen seconds and stay there for as long as the listener wants the station.
class RetryPolicy {
public:
  // The delay before the next attempt: uniform over a window that grows with each attempt. When a station drops all its
  // listeners at once, only wide jitter spreads their return; a jitter of a fifth would bring them back in waves.
  // `random` is uniform in 0..1.
  [[nodiscard]] std::uint32_t next_delay_ms(double random) {
    struct Window {
      std::uint32_t from;
      std::uint32_t to;
    };
    constexpr Window windows[] = {{200, 2000}, {1000, 5000}, {3000, 10000}, {5000, 15000}};
    const Window& window = windows[attempt_];
    attempt_ = std::min(attempt_ + 1, std::size(windows) - 1);
    return window.from + static_cast<std::uint32_t>((window.to - window.from) * std::clamp(random, 0.0, 1.0));
  }

  // Call after sound has played for that long. A station that plays well restarts with the shortest delay; one that
  // soon drops its listeners does not.
  void heard(std::uint64_t milliseconds) {
    if (milliseconds >= 5000)
      attempt_ = 0;
  }

private:
  std::size_t attempt_ = 0;
};

} // namespace lumotune::media
