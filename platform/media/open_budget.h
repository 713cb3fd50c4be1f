// SPDX-License-Identifier: LGPL-2.1-or-later
// Limits of one attempt to play a station, across all the playlists it leads through.
#pragma once

#include <chrono>
#include <set>
#include <string>

namespace lumotune::media {

// One object per attempt. Worker thread.
class OpenBudget {
public:
  using Clock = std::chrono::steady_clock;
  static constexpr int max_openings = 40;
  static constexpr std::chrono::seconds max_time{60};

  explicit OpenBudget(Clock::time_point now = Clock::now()) : deadline_(now + max_time) {}

  // Call before each opening. False after too many, after the deadline, or for an address opened before, which breaks
  // cycles of playlists that refer to each other.
  [[nodiscard]] bool take(const std::string& address, Clock::time_point now = Clock::now()) {
    if (over(now) || !opened_.insert(address).second)
      return false;
    ++openings_;
    return true;
  }
  // Whether `take` would return true; has no effect.
  [[nodiscard]] bool allows(const std::string& address, Clock::time_point now = Clock::now()) const {
    return !over(now) && !opened_.contains(address);
  }
  [[nodiscard]] bool over(Clock::time_point now = Clock::now()) const {
    return openings_ >= max_openings || now >= deadline_;
  }
  [[nodiscard]] Clock::time_point deadline() const { return deadline_; }

private:
  Clock::time_point deadline_;
  int openings_ = 0;
  std::set<std::string> opened_;
};

} // namespace lumotune::media
