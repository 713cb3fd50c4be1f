// SPDX-License-Identifier: LGPL-2.1-or-later
// Looks at the screen again after a window manager has moved a window.
#pragma once

#include "platform/event_loop.h"

#include <functional>
#include <memory>
#include <utility>

namespace lumotune::platform {

// A window manager can react to a change of the screen before the system reports the new monitors, and not every system
// sends a message once it does. User-interface thread.
class ScreenRecheck {
public:
  ScreenRecheck(EventLoop& loop, std::function<void()> look)
      : look_(std::move(look)), timer_(loop.make_timer(500, [this] { tick(); })) {}

  // Looks every half second for ten seconds.
  void begin() {
    left_ = 20;
    timer_->start();
  }

private:
  void tick() {
    if (--left_ <= 0)
      timer_->stop();
    look_();
  }

  std::function<void()> look_;
  int left_ = 0;
  std::unique_ptr<Timer> timer_;
};

} // namespace lumotune::platform
