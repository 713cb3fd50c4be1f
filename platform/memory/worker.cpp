// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/worker.h"

#include <thread>
#include <utility>

namespace lumotune::platform::memory {
namespace {

// A cancelled job stays in the queue and does nothing.
class Task final : public WorkerTask {
public:
  explicit Task(std::shared_ptr<Worker::Job> job) : job_(std::move(job)) {}
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() override {
    job_->done = {};
    job_->work = {};
  }

private:
  std::shared_ptr<Worker::Job> job_;
};

} // namespace

Worker::Worker(EventLoop& loop) : waker_(loop.make_waker([this] { step(); })) {}

Worker::~Worker() {
  ui_thread_.check();
}

std::unique_ptr<WorkerTask> Worker::start(std::function<void()> work, std::function<void(bool finished)> done) {
  ui_thread_.check();
  jobs_.push_back(std::make_shared<Job>(Job{false, false, std::move(work), std::move(done)}));
  waker_->wake();
  return std::make_unique<Task>(jobs_.back());
}

void Worker::go_on() {
  before_work_ = before_done_ = false;
  waker_->wake();
}

bool Worker::stopped() const {
  return jobs_.empty() || (jobs_.front()->over ? before_done_ : before_work_);
}

// Either the work of the first job, or its end.
void Worker::step() {
  if (stopped())
    return;
  const auto job = jobs_.front();
  waker_->wake();
  if (!job->over)
    return run(*job);
  jobs_.pop_front();
  if (const auto done = std::exchange(job->done, {}))
    done(job->finished);
}

void Worker::run(Job& job) {
  job.over = true;
  const auto work = std::exchange(job.work, {});
  if (!work || no_threads)
    return;
  ++works_;
  std::thread([&] {
    try {
      work();
      job.finished = true;
    } catch (...) { // told by `finished`
    }
  }).join();
}

} // namespace lumotune::platform::memory
