// SPDX-License-Identifier: LGPL-2.1-or-later
// The one loop of the user-interface thread: timers, posted work, pending events, the tick count and the end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace lumotune::platform {

// A repeating timer of the user-interface thread. Stopped when made; destroying it cancels it, also from inside its own
// tick. A tick never nests in itself: one that falls due while it runs is left out. Starting a running timer changes
// nothing: its next tick stays where it was.
class Timer {
public:
  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  virtual ~Timer() = default;

  virtual void start() = 0;
  virtual void stop() = 0;
  [[nodiscard]] virtual bool running() const = 0;
  virtual void set_interval(std::uint32_t milliseconds) = 0; // at least 1; a running timer starts its interval anew
};

// Work that another thread (or a handler that must not nest) asks the loop to do soon. Many wakes before the work runs
// are one run. Destroying it cancels it; its owner makes sure that no thread calls `wake` afterwards.
class Waker {
public:
  Waker() = default;
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;
  virtual ~Waker() = default;

  virtual void wake() = 0; // any thread
};

// Work that waits for the top of the loop. Destroying it cancels the work, unless that has begun.
class TopLevelWork {
public:
  TopLevelWork() = default;
  TopLevelWork(const TopLevelWork&) = delete;
  TopLevelWork& operator=(const TopLevelWork&) = delete;
  virtual ~TopLevelWork() = default;
};

// Everything here is called on the user-interface thread, except Waker::wake.
class EventLoop {
public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  [[nodiscard]] virtual std::unique_ptr<Timer> make_timer(std::uint32_t interval_ms, std::function<void()> tick) = 0;
  [[nodiscard]] virtual std::unique_ptr<Waker> make_waker(std::function<void()> work) = 0;

  // Does that once, in the order of posting, from `run` itself: never while a handler, a wait, a message box or a
  // pop-up menu is still to come back, so that objects whose procedures may wait can be destroyed. Not after `quit`.
  [[nodiscard]] virtual std::unique_ptr<TopLevelWork> post_top_level(std::function<void()> work) = 0;

  // Lets the events that are pending now run, and returns. May be called from inside handlers, so everything may have
  // changed afterwards.
  virtual void run_pending() = 0;

  // One pass of a wait: pending events run, then at most a few milliseconds of sleep that new events end early.
  // False once `quit` was called: the caller returns to the top without further steps.
  [[nodiscard]] virtual bool wait_a_little() = 0;

  // Milliseconds since some start; wraps round at 2^32. Compare differences only.
  [[nodiscard]] virtual std::uint32_t tick_count_ms() const = 0;

  // The end begins, before `quit`: what is left to do may take a while, but menus and boxes that wait for the user
  // close, and none opens any more.
  virtual void begin_end() = 0;
  [[nodiscard]] virtual bool ending() const = 0; // from `begin_end` or `quit` on

  // Asks the program to end: `run` returns and every wait answers false from now on.
  virtual void quit() = 0;
  [[nodiscard]] virtual bool quitting() const = 0;

  // Runs events until `quit`.
  virtual void run() = 0;
};

} // namespace lumotune::platform
