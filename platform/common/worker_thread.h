// SPDX-License-Identifier: LGPL-2.1-or-later
// The worker on a thread of its own, which exists while there is work.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/event_loop.h"
#include "platform/worker.h"

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace lumotune::platform {

// User-interface thread.
class WorkerThread final : public Worker {
public:
  explicit WorkerThread(EventLoop& loop);
  WorkerThread(const WorkerThread&) = delete;
  WorkerThread& operator=(const WorkerThread&) = delete;
  ~WorkerThread() override;

  [[nodiscard]] std::unique_ptr<WorkerTask> start(std::function<void()> work,
                                                  std::function<void(bool finished)> done) override;

  struct Job;
  struct Queue; // shared with the tasks, which may outlive this object

private:
  void run_thread();
  void run_jobs() noexcept; // the thread
  void tell();

  const ThreadCheck ui_thread_{"user-interface thread"};
  std::shared_ptr<Queue> queue_;
  std::unique_ptr<Waker> waker_;
  std::thread thread_;
};

} // namespace lumotune::platform
