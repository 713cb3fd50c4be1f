// SPDX-License-Identifier: LGPL-2.1-or-later
// A single-slot channel from the workers to the user-interface thread: the newest report wins, and reports of stale
// streams are dropped.
#pragma once

#include "platform/event_loop.h"
#include "platform/media/stream_status.h"

#include <cstdint>
#include <mutex>
#include <utility>

namespace lumotune::media {

class Board {
public:
  // User-interface thread.
  void open(platform::Waker* waker) {
    const std::lock_guard lock(mutex_);
    waker_ = waker;
  }
  void close() { open(nullptr); } // the waker is not used afterwards
  void expect(std::uint64_t stream, StreamStatus first) {
    const std::lock_guard lock(mutex_);
    stream_ = stream;
    status_ = std::move(first);
  }
  [[nodiscard]] StreamStatus read() {
    const std::lock_guard lock(mutex_);
    return status_;
  }

  // Any worker thread.
  void report(std::uint64_t stream, const StreamStatus& status) {
    const std::lock_guard lock(mutex_);
    if (stream != stream_ || status == status_)
      return;
    status_ = status;
    if (waker_ != nullptr)
      waker_->wake();
  }

private:
  std::mutex mutex_;
  platform::Waker* waker_ = nullptr;
  std::uint64_t stream_ = 0;
  StreamStatus status_;
};

} // namespace lumotune::media
