// SPDX-License-Identifier: LGPL-2.1-or-later
// Work that takes too long for the user-interface thread: computing, and files read and written whole.
#pragma once

#include <functional>
#include <memory>

namespace lumotune::platform {

// Work handed to a worker. Destroying it, also from its own `done`, cancels: `done` is not called any more, and work
// that has not begun is not done. Work that has begun runs to its end.
class WorkerTask {
public:
  WorkerTask() = default;
  WorkerTask(const WorkerTask&) = delete;
  WorkerTask& operator=(const WorkerTask&) = delete;
  virtual ~WorkerTask() = default;
};

// User-interface thread.
class Worker {
public:
  Worker() = default;
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  // Drops the work that waits, and waits for the work that has begun.
  virtual ~Worker() = default;

  // Does the work on another thread, one at a time, in the order of the calls; then calls `done` on the user-interface
  // thread, from the event loop (boxes, menus and waits included), never from within this call. `finished` is false
  // when the work threw, or when the system had no thread for it. The work must own what it touches, or that must
  // outlive the worker; it is destroyed as soon as it is done, on the thread that did it.
  [[nodiscard]] virtual std::unique_ptr<WorkerTask> start(std::function<void()> work,
                                                          std::function<void(bool finished)> done) = 0;
};

} // namespace lumotune::platform
