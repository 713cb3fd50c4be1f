// SPDX-License-Identifier: LGPL-2.1-or-later
// When a lost stream is tried again. Pure.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace lumotune::media {

// The waits grow to fifteen seconds and stay there for as long as the listener wants the station.
class RetryPolicy {
public:
  // How long to wait now: anywhere in a window that grows with each try. When a station drops all its listeners in one
  // moment, chance alone spreads their return: waits that differ by a fifth bring them back as one wave after the
  // other. `random` is anywhere in 0..1.
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

  // Sound flowed for that long: a station that plays well starts again with the shortest wait, one that lets nobody
  // stay does not.
  void heard(std::uint64_t milliseconds) {
    if (milliseconds >= 5000)
      attempt_ = 0;
  }

private:
  std::size_t attempt_ = 0;
};

} // namespace lumotune::media
