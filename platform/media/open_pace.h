// SPDX-License-Identifier: LGPL-2.1-or-later
// Rate limit for the openings of a segmented stream. Pure.
#pragma once

#include <algorithm>
#include <chrono>
#include <map>
#include <string>

namespace lumotune::media {

// A token bucket, so that a list of millisecond segments cannot make us send requests as fast as the server answers:
// bursts of 20 openings, then 4 per second, and the same address at most twice per second.
class OpenPace {
public:
  using Clock = std::chrono::steady_clock;
  static constexpr int most_at_once = 20;
  static constexpr std::chrono::milliseconds each{250};
  static constexpr std::chrono::milliseconds again{500};

  // Reserves the next slot for that address and returns when it may be opened, `now` or later.
  [[nodiscard]] Clock::time_point turn(const std::string& address, Clock::time_point now = Clock::now()) {
    free_at_ = std::max(free_at_, now - each * (most_at_once - 1));
    Clock::time_point at = std::max(now, free_at_);
    free_at_ += each;
    if (last_.size() > most_remembered)
      last_.clear();
    const auto [last, added] = last_.try_emplace(address, at);
    if (!added)
      at = last->second = std::max(at, last->second + again);
    return at;
  }

private:
  static constexpr std::size_t most_remembered = 200;
  Clock::time_point free_at_{};
  std::map<std::string, Clock::time_point> last_;
};

} // namespace lumotune::media
