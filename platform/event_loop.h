// SPDX-License-Identifier: LGPL-2.1-or-later
// The event loop of the user-interface thread: timers, posted work, pending events, the tick count and the end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace lumotune::platform {

// A repeating timer on the user-interface thread. Created stopped; destroying it cancels it, even from its own tick.
// Ticks never nest: one that falls due while another is running is skipped. Starting a running timer does not change
// when it ticks next.
class Timer {
public:
  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  virtual ~Timer() = default;

  virtual void start() = 0;
  virtual void stop() = 0;
  [[nodiscard]] virtual bool running() const = 0;
  virtual void set_interval(std::uint32_t milliseconds) = 0; // at least 1; restarts the interval of a running timer
};

// Work that another thread (or a handler that must not nest) schedules on the loop. Several wakes before the work runs
// cause one run. Destroying it cancels the work; its owner ensures that no thread calls `wake` afterwards.
class Waker {
public:
  Waker() = default;
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;
  virtual ~Waker() = default;

  virtual void wake() = 0; // any thread
};

// Work posted to the top level of the loop. Destroying it cancels the work, unless it has begun.
class TopLevelWork {
public:
  TopLevelWork() = default;
  TopLevelWork(const TopLevelWork&) = delete;
  TopLevelWork& operator=(const TopLevelWork&) = delete;
  virtual ~TopLevelWork() = default;
};

// User-interface thread, except Waker::wake.
class EventLoop {
public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  [[nodiscard]] virtual std::unique_ptr<Timer> make_timer(std::uint32_t interval_ms, std::function<void()> tick) = 0;
  [[nodiscard]] virtual std::unique_ptr<Waker> make_waker(std::function<void()> work) = 0;

  // Runs the work once, in posting order, from `run` itself: never inside a handler, a wait, a message box or a pop-up
  // menu, so that objects whose procedures may wait can be destroyed. Not run after `quit`.
  [[nodiscard]] virtual std::unique_ptr<TopLevelWork> post_top_level(std::function<void()> work) = 0;

  // Runs the events that are pending now, and returns. May be called from handlers, so any state may have changed
  // afterwards.
  virtual void run_pending() = 0;

  // One pass of a wait: runs pending events, then sleeps a few milliseconds at most, or until a new event. False once
  // `quit` was called: the caller must unwind to the top without further steps.
  [[nodiscard]] virtual bool wait_a_little() = 0;

  // Milliseconds since an arbitrary start; wraps at 2^32. Compare differences only.
  [[nodiscard]] virtual std::uint32_t tick_count_ms() const = 0;

  // Begins the end, before `quit`: the remaining work may take a while, but menus and boxes that wait for the user
  // close, and no new ones open.
  virtual void begin_end() = 0;
  [[nodiscard]] virtual bool ending() const = 0; // from `begin_end` or `quit` on

  // Ends the program: `run` returns, and every wait returns false from now on.
  virtual void quit() = 0;
  [[nodiscard]] virtual bool quitting() const = 0;

  // Runs events until `quit`.
  virtual void run() = 0;
};

} // namespace lumotune::platform
