// SPDX-License-Identifier: LGPL-2.1-or-later
// Closes boxes and menus that wait in a modal loop of the system when the program ends.
#pragma once

#include "platform/event_loop.h"

#include <functional>
#include <memory>
#include <utility>

namespace lumotune::platform::win32 {

// User-interface thread. Waits may nest.
class EndWatch {
public:
  // `close` ends the waits; it is called again and again until they have ended.
  EndWatch(platform::EventLoop& loop, std::function<void()> close)
      : timer_(loop.make_timer(period_ms, [&loop, close = std::move(close)] {
          if (loop.ending())
            close();
        })) {}

  // Returns the result of `wait`.
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
