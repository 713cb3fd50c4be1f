// SPDX-License-Identifier: LGPL-2.1-or-later
// How often a stream of many pieces may open the next one. Pure.
#pragma once

#include <algorithm>
#include <chrono>
#include <map>
#include <string>

namespace lumotune::media {

// A list that claims segments of a millisecond must not make us ask as fast as the server answers: 20 openings at once,
// then 4 a second, and the same address twice a second.
class OpenPace {
public:
  using Clock = std::chrono::steady_clock;
  static constexpr int most_at_once = 20;
  static constexpr std::chrono::milliseconds each{250};
  static constexpr std::chrono::milliseconds again{500};

  // When that address may be opened, `now` or later; it counts as opened then.
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
