// SPDX-License-Identifier: LGPL-2.1-or-later
// A headless event loop with a manually advanced clock, for single-threaded tests.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/common/top_level_queue.h"
#include "platform/event_loop.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace lumotune::platform::memory {

class Timer;
class Waker;

// Due events run by due time, then in order of creation. Time advances only through `advance`, the passes of a wait and
// `run`; a handler that waits inside `advance` may move the clock past its target, as on a real machine. The top level
// of the loop is `run`, or `advance` when not called from within a wait.
class EventLoop final : public platform::EventLoop {
public:
  explicit EventLoop(std::uint32_t start_ms = 1000) : now_(start_ms) {}
  ~EventLoop() override;

  [[nodiscard]] std::unique_ptr<platform::Timer> make_timer(std::uint32_t interval_ms,
                                                            std::function<void()> tick) override;
  [[nodiscard]] std::unique_ptr<platform::Waker> make_waker(std::function<void()> work) override;
  [[nodiscard]] std::unique_ptr<TopLevelWork> post_top_level(std::function<void()> work) override;
  void run_pending() override;
  [[nodiscard]] bool wait_a_little() override;
  [[nodiscard]] std::uint32_t tick_count_ms() const override;
  void begin_end() override;
  [[nodiscard]] bool ending() const override { return ending_ || quitting_; }
  void quit() override;
  [[nodiscard]] bool quitting() const override { return quitting_; }
  void run() override; // also returns when no event is left that could ever run

  // While one of these exists, a handler, a message box or a menu is active: the loop is not at its top level.
  class Nested {
  public:
    explicit Nested(EventLoop& loop) : loop_(loop) { ++loop_.depth_; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;
    ~Nested() { --loop_.depth_; }

  private:
    EventLoop& loop_;
  };

  // Advances the clock by that much and runs what falls due.
  void advance(std::uint64_t ms);
  // Runs the action once, in that many milliseconds: simulates the user during a wait.
  void at(std::uint64_t in_ms, std::function<void()> action);

  // The duration of one pass of a wait, in milliseconds.
  void set_wait_step(std::uint32_t ms) { wait_step_ = ms; }
  // How far the clock moves whenever somebody looks at it: a machine that needs that long for the work between two
  // looks.
  void set_look_cost(std::uint32_t ms) { look_cost_ = ms; }
  [[nodiscard]] std::uint64_t pending_runs() const { return pending_runs_; }
  [[nodiscard]] std::uint64_t wait_passes() const { return wait_passes_; }

private:
  friend class Timer;
  friend class Waker;
  struct Planned {
    std::uint64_t due = 0;
    std::uint64_t order = 0;
    std::function<void()> action;
  };

  void run_due();
  void run_top_level();
  [[nodiscard]] bool run_one_due();
  [[nodiscard]] bool next_due(std::uint64_t& due) const;

  const ThreadCheck thread_{"user-interface thread"};
  mutable std::uint64_t now_;
  std::uint64_t order_ = 0;
  std::uint64_t pending_runs_ = 0;
  std::uint64_t wait_passes_ = 0;
  std::uint32_t wait_step_ = 5;
  std::uint32_t look_cost_ = 0;
  int depth_ = 0; // active handlers, waits, message boxes and menus
  bool ending_ = false;
  bool quitting_ = false;
  std::vector<Timer*> timers_;
  std::vector<Waker*> wakers_;
  std::vector<Planned> planned_;
  TopLevelQueue top_level_;
};

} // namespace lumotune::platform::memory
