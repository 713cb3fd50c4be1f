// SPDX-License-Identifier: LGPL-2.1-or-later
// A worker whose work is done by an event of the loop, for tests: events come between the call, the work and its end.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/memory/event_loop.h"
#include "platform/worker.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

namespace lumotune::platform::memory {

// As strict as a real one: the work runs on another thread, which is waited for.
class Worker final : public platform::Worker {
public:
  explicit Worker(EventLoop& loop);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() override;

  [[nodiscard]] std::unique_ptr<WorkerTask> start(std::function<void()> work,
                                                  std::function<void(bool finished)> done) override;

  // The system has no thread left: work fails without having begun.
  bool no_threads = false;
  // Work takes its time: what has not begun does not begin, and what is over is not told, until `go_on`.
  void stop_before_work() { before_work_ = true; }
  void stop_before_done() { before_done_ = true; }
  void go_on();
  [[nodiscard]] std::size_t works() const { return works_; } // that were begun so far

  struct Job {
    bool over = false;
    bool finished = false;
    std::function<void()> work;
    std::function<void(bool finished)> done;
  };

private:
  void step();
  void run(Job& job);
  [[nodiscard]] bool stopped() const;

  const ThreadCheck ui_thread_{"user-interface thread"};
  std::deque<std::shared_ptr<Job>> jobs_;
  std::unique_ptr<platform::Waker> waker_;
  std::size_t works_ = 0;
  bool before_work_ = false;
  bool before_done_ = false;
};

} // namespace lumotune::platform::memory
