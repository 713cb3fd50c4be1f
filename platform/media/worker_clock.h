// SPDX-License-Identifier: LGPL-2.1-or-later
// The worker's time: what it reads and how it waits. A test steps it by hand.
#pragma once

#include "platform/media/mailbox.h"

#include <chrono>
#include <cstdint>

namespace lumotune::media {

// Worker thread. This one is the machine's own clock.
class WorkerClock {
public:
  using Time = std::chrono::steady_clock::time_point;

  WorkerClock() = default;
  WorkerClock(const WorkerClock&) = delete;
  WorkerClock& operator=(const WorkerClock&) = delete;
  virtual ~WorkerClock() = default;

  [[nodiscard]] virtual Time now() const { return std::chrono::steady_clock::now(); }
  // Waits up to `time` for a wish newer than `stream`; true when there is one.
  [[nodiscard]] virtual bool wait(Mailbox& mailbox, std::uint64_t stream, std::chrono::milliseconds time) {
    return mailbox.wait(stream, time);
  }
};

} // namespace lumotune::media
