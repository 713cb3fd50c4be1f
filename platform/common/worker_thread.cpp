// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/worker_thread.h"

#include "platform/threads/thread_name.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace lumotune::platform {

struct WorkerThread::Job {
  enum class State { waiting, under_way, over };
  State state = State::waiting;
  bool finished = false;
  std::function<void()> work;
  std::function<void(bool finished)> done; // the user-interface thread's own
};

// A job stays in the queue until its end is told: the thread allocates nothing.
struct WorkerThread::Queue {
  std::mutex mutex;
  std::deque<std::shared_ptr<Job>> jobs;
  bool thread_runs = false;

  // Nothing when no job waits: from then on the thread counts as ended.
  [[nodiscard]] std::shared_ptr<Job> next() {
    const std::scoped_lock lock(mutex);
    const auto found =
        std::find_if(jobs.begin(), jobs.end(), [](const auto& job) { return job->state == Job::State::waiting; });
    thread_runs = found != jobs.end();
    if (!thread_runs)
      return nullptr;
    (*found)->state = Job::State::under_way;
    return *found;
  }
  void end(Job& job) {
    const std::scoped_lock lock(mutex);
    job.state = Job::State::over;
  }
  // The first job, once it is over.
  [[nodiscard]] std::shared_ptr<Job> take_over() {
    const std::scoped_lock lock(mutex);
    if (jobs.empty() || jobs.front()->state != Job::State::over)
      return nullptr;
    auto job = std::move(jobs.front());
    jobs.pop_front();
    return job;
  }
  void drop_waiting() {
    const std::scoped_lock lock(mutex);
    std::erase_if(jobs, [](const auto& job) { return job->state == Job::State::waiting; });
  }
  void cancel(const std::shared_ptr<Job>& job) {
    job->done = {};
    const std::scoped_lock lock(mutex);
    if (job->state == Job::State::waiting)
      std::erase(jobs, job);
  }
};

namespace {

class Task final : public WorkerTask {
public:
  Task(std::shared_ptr<WorkerThread::Queue> queue, std::shared_ptr<WorkerThread::Job> job)
      : queue_(std::move(queue)), job_(std::move(job)) {}
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() override { queue_->cancel(job_); }

private:
  std::shared_ptr<WorkerThread::Queue> queue_;
  std::shared_ptr<WorkerThread::Job> job_;
};

} // namespace

WorkerThread::WorkerThread(EventLoop& loop)
    : queue_(std::make_shared<Queue>()), waker_(loop.make_waker([this] { tell(); })) {}

WorkerThread::~WorkerThread() {
  ui_thread_.check();
  queue_->drop_waiting();
  if (thread_.joinable())
    thread_.join();
}

std::unique_ptr<WorkerTask> WorkerThread::start(std::function<void()> work, std::function<void(bool finished)> done) {
  ui_thread_.check();
  auto job = std::make_shared<Job>();
  job->work = std::move(work);
  job->done = std::move(done);
  auto task = std::make_unique<Task>(queue_, job);
  bool thread_runs = false;
  {
    const std::scoped_lock lock(queue_->mutex);
    queue_->jobs.push_back(job);
    thread_runs = std::exchange(queue_->thread_runs, true);
  }
  if (!thread_runs)
    run_thread();
  return task;
}

// The thread before this one has seen that nothing waits: waiting for its end takes no time.
void WorkerThread::run_thread() {
  if (thread_.joinable())
    thread_.join();
  try {
    thread_ = std::thread([this] { run_jobs(); });
  } catch (const std::exception&) { // no thread or no memory for it: all that waits is over, unfinished
    while (const auto job = queue_->next())
      queue_->end(*job);
    waker_->wake();
  }
}

void WorkerThread::run_jobs() noexcept {
  name_this_thread("file worker");
  while (const auto job = queue_->next()) {
    try {
      std::exchange(job->work, {})();
      job->finished = true;
    } catch (...) { // told by `finished`
    }
    queue_->end(*job);
    waker_->wake();
  }
}

// One a round: what it calls may run events, throw, or destroy tasks.
void WorkerThread::tell() {
  const auto job = queue_->take_over();
  if (!job)
    return;
  waker_->wake();
  if (const auto done = std::exchange(job->done, {}))
    done(job->finished);
}

} // namespace lumotune::platform
