// SPDX-License-Identifier: LGPL-2.1-or-later
// The events that boxes and menus in memory let run while they are open.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/memory/event_loop.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace lumotune::platform::memory {

// Without a loop nothing happens: for what has no events at all.
class Modal {
public:
  void lets_run(EventLoop& loop) { loop_ = &loop; }
  // What is due runs, and what falls due until the user answers; then `further`, if there is something.
  void open(const std::function<void()>& further) const {
    thread_.check();
    const std::function<void()> copy = further; // it may replace itself
    std::optional<EventLoop::Nested> nested;
    if (loop_ != nullptr) {
      nested.emplace(*loop_);
      loop_->advance(open_for_ms);
    }
    if (copy)
      copy();
  }

  std::uint32_t open_for_ms = 0; // of the loop's time

private:
  const ThreadCheck thread_{"user-interface thread"};
  EventLoop* loop_ = nullptr;
};

} // namespace lumotune::platform::memory
