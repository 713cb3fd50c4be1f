// SPDX-License-Identifier: LGPL-2.1-or-later
// The wish the worker is serving, and what interrupts it: a newer wish, or an exception in one of FFmpeg's callbacks.
// Worker thread.
#pragma once

#include "platform/media/mailbox.h"
#include "platform/media/worker_clock.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

namespace lumotune::media {

class CurrentWish {
public:
  // `tick` is the worker's periodic work, which continues while FFmpeg waits.
  // `clock` must outlive it.
  CurrentWish(Mailbox& mailbox, WorkerClock& clock, std::function<void()> tick)
      : mailbox_(mailbox), clock_(clock), tick_(std::move(tick)) {}

  // Waits for the next wish; one with stream 0 means the end.
  [[nodiscard]] const Wish& take() { return wish_ = mailbox_.take(wish_.stream); }

  [[nodiscard]] std::uint64_t stream() const { return wish_.stream; }
  [[nodiscard]] bool superseded() const { return mailbox_.newer_than(wish_.stream); }
  // Waits up to `time` for a newer wish; true when there is one.
  [[nodiscard]] bool wait(std::chrono::milliseconds time) { return clock_.wait(mailbox_, wish_.stream, time); }
  [[nodiscard]] WorkerClock::Time now() const { return clock_.now(); }

  // FFmpeg's interrupt callback: true makes it give up.
  [[nodiscard]] bool interrupted() noexcept {
    guarded(tick_);
    return threw_ || superseded();
  }
  // Runs a callback called from FFmpeg, which is C: exceptions must not pass through it and are only recorded.
  template <typename Function>
  void guarded(const Function& function) noexcept {
    try {
      function();
    } catch (...) {
      threw_ = true;
    }
  }
  [[nodiscard]] bool threw() const { return threw_; } // in this attempt
  void begin_attempt() { threw_ = false; }

private:
  Mailbox& mailbox_;
  WorkerClock& clock_;
  std::function<void()> tick_;
  Wish wish_;
  bool threw_ = false;
};

} // namespace lumotune::media
