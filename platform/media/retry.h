// SPDX-License-Identifier: LGPL-2.1-or-later
// When a lost stream is tried again. Pure.
#pragma once

#include <cstdint>

namespace lumotune::media {

// The waits grow from half a second to fifteen and stay there for as long as the listener wants the station.
class RetryPolicy {
public:
  // How long to wait now, with up to a fifth more or less, so that not all listeners come back in the same moment.
  // `random` is anywhere in 0..1.
  [[nodiscard]] std::uint32_t next_delay_ms(double random) {
    constexpr std::uint32_t delays[] = {500, 1000, 2000, 4000, 8000, 15000};
    constexpr std::uint32_t last = sizeof delays / sizeof delays[0] - 1;
    const std::uint32_t delay = delays[attempt_ < last ? attempt_ : last];
    if (attempt_ < last)
      ++attempt_;
    return static_cast<std::uint32_t>(delay * (0.8 + 0.4 * random));
  }

  // Sound flowed for that long: a station that plays well starts again with the shortest wait, one that lets nobody
  // stay does not.
  void heard(std::uint64_t milliseconds) {
    if (milliseconds >= 5000)
      attempt_ = 0;
  }

private:
  std::uint32_t attempt_ = 0;
};

} // namespace lumotune::media
