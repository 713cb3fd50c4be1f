// SPDX-License-Identifier: LGPL-2.1-or-later
// The queue of work posted to the top level of an event loop.
#pragma once

#include "platform/event_loop.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

namespace lumotune::platform {

// User-interface thread.
class TopLevelQueue {
public:
  [[nodiscard]] std::unique_ptr<TopLevelWork> post(std::function<void()> work);
  [[nodiscard]] std::size_t size() const { return waiting_.size(); } // what was cancelled still counts
  // The work posted first; empty when it was cancelled or the queue is empty.
  [[nodiscard]] std::function<void()> take();

private:
  std::deque<std::shared_ptr<std::function<void()>>> waiting_;
};

} // namespace lumotune::platform
