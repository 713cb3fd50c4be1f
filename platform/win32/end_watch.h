// SPDX-License-Identifier: LGPL-2.1-or-later
// Closes what waits for the user in a loop of the system's own when the program ends meanwhile.
#pragma once

#include "platform/event_loop.h"

#include <functional>
#include <memory>
#include <utility>

namespace lumotune::platform::win32 {

// User-interface thread. Waits may lie inside each other.
class EndWatch {
public:
  // `close` ends the waits; it is called again and again until they have ended.
  EndWatch(platform::EventLoop& loop, std::function<void()> close)
      : timer_(loop.make_timer(period_ms, [&loop, close = std::move(close)] {
          if (loop.ending())
            close();
        })) {}

  // Answers what `wait` answers.
  template <typename Wait>
  auto during(Wait wait) {
    ++waits_;
    timer_->start();
    const auto answer = wait();
    if (--waits_ == 0)
      timer_->stop();
    return answer;
  }

private:
  static constexpr std::uint32_t period_ms = 50;

  std::unique_ptr<platform::Timer> timer_;
  int waits_ = 0;
};

} // namespace lumotune::platform::win32
