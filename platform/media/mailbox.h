// SPDX-License-Identifier: LGPL-2.1-or-later
// A single-slot channel from the user-interface thread to a worker: the newest wish wins.
#pragma once

#include "platform/media_player.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>

namespace lumotune::media {

struct Wish {
  std::uint64_t stream = 0; // grows with every wish
  std::string address;      // UTF-8
  bool playing = false;
  platform::AddressOrigin origin = platform::AddressOrigin::station;
};

class Mailbox {
public:
  // User-interface thread; returns at once.
  void post(Wish wish) {
    {
      const std::lock_guard lock(mutex_);
      newest_.store(wish.stream, std::memory_order_release);
      wish_ = std::move(wish);
    }
    changed_.notify_all();
  }
  void close() { // tells the worker to end
    {
      const std::lock_guard lock(mutex_);
      closed_.store(true, std::memory_order_release);
    }
    changed_.notify_all();
  }
  // The last wish the worker took; if it does not change, the worker is stuck.
  [[nodiscard]] std::uint64_t taken() const { return taken_.load(std::memory_order_acquire); }

  // Worker thread.
  [[nodiscard]] bool newer_than(std::uint64_t stream) const {
    return closed_.load(std::memory_order_acquire) || newest_.load(std::memory_order_acquire) > stream;
  }
  [[nodiscard]] bool closed() const { return closed_.load(std::memory_order_acquire); }
  // Waits up to `time` for a newer wish; true when there is one or the mailbox is closed.
  [[nodiscard]] bool wait(std::uint64_t stream, std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, time, [&] { return newer_than(stream); });
  }
  // Waits for a wish newer than `stream`; one with stream 0 when the mailbox is closed.
  [[nodiscard]] Wish take(std::uint64_t stream) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return newer_than(stream); });
    if (closed_)
      return {};
    taken_.store(wish_.stream, std::memory_order_release);
    return wish_;
  }

private:
  std::mutex mutex_;
  std::condition_variable changed_;
  Wish wish_;
  std::atomic<std::uint64_t> newest_ = 0;
  std::atomic<std::uint64_t> taken_ = 0;
  std::atomic<bool> closed_ = false;
};

} // namespace lumotune::media
