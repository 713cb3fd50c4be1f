// SPDX-License-Identifier: LGPL-2.1-or-later
// Runs events while an in-memory message box or menu is open.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/memory/event_loop.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace lumotune::platform::memory {

// Without a loop no events run.
class Modal {
public:
  void lets_run(EventLoop& loop) { loop_ = &loop; }
  // Runs what is due, and what falls due until the user answers; then `further`, if set.
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

  std::uint32_t open_for_ms = 0; // milliseconds of the loop's clock

private:
  const ThreadCheck thread_{"user-interface thread"};
  EventLoop* loop_ = nullptr;
};

} // namespace lumotune::platform::memory
