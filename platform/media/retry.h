// SPDX-License-Identifier: LGPL-2.1-or-later
// Back-off between reconnection attempts. Pure.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace lumotune::media {

// The delays grow to fifteen seconds and stay there for as long as the listener wants the station.
class RetryPolicy {
public:
  // The delay before the next attempt: uniform over a window that grows with each attempt. When a station drops all its
  // listeners at once, only wide jitter spreads their return; a jitter of a fifth would bring them back in waves.
  // `random` is uniform in 0..1. A server may ask for a longer delay: up to a minute is granted and a quarter of it
  // added at random; a server that asks for more gets its listeners back in the last quarter of the minute.
  // The time `spent` on an attempt that brought no sound counts as delay, as far as the spread allows: the server was
  // left in peace, and an attempt begun just before it recovers must not cost its time-out and a whole delay.
  [[nodiscard]] std::uint32_t next_delay_ms(double random, std::chrono::seconds asked = {},
                                            std::chrono::milliseconds spent = {}) {
    constexpr std::chrono::milliseconds most = std::chrono::minutes(1);
    const std::chrono::milliseconds least = asked > most ? most * 4 / 5 : std::chrono::milliseconds(asked);
    const std::uint32_t own = window_delay_ms(random, spent);
    const double spread = static_cast<double>(std::min(most, least * 5 / 4).count() - least.count());
    return std::max(own, static_cast<std::uint32_t>(static_cast<double>(least.count()) + spread * unit(random)));
  }

  // Call after sound has played for that long. A station that plays well restarts with the shortest delay; one that
  // soon drops its listeners does not.
  void heard(std::uint64_t milliseconds) {
    if (milliseconds >= 5000)
      attempt_ = 0;
  }

private:
  static double unit(double random) { return std::clamp(random, 0.0, 1.0); }
  std::uint32_t window_delay_ms(double random, std::chrono::milliseconds spent) {
    struct Window {
      std::int64_t from_ms;
      std::int64_t to_ms;
    };
    constexpr Window windows[] = {{200, 2000}, {1000, 5000}, {3000, 10000}, {5000, 15000}};
    const Window& window = windows[attempt_];
    attempt_ = std::min(attempt_ + 1, std::size(windows) - 1);
    constexpr std::int64_t longest_ms = std::end(windows)[-1].to_ms;
    constexpr std::int64_t least_spread_ms = windows[1].to_ms;
    const std::int64_t from = std::clamp(window.from_ms - spent.count(), windows[0].from_ms, window.from_ms);
    const std::int64_t to =
        std::clamp(longest_ms - spent.count(), std::min(least_spread_ms, window.to_ms), window.to_ms);
    return static_cast<std::uint32_t>(from) + static_cast<std::uint32_t>(static_cast<double>(to - from) * unit(random));
  }

  std::size_t attempt_ = 0;
};

} // namespace lumotune::media
