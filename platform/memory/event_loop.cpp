// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/event_loop.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace lumotune::platform::memory {

// The tick function is copied before it runs, so that a handler may destroy its own timer.
class Timer final : public platform::Timer {
public:
  Timer(EventLoop& loop, std::uint32_t interval_ms, std::function<void()> tick)
      : loop_(loop), interval_(std::max(interval_ms, 1U)), tick_(std::move(tick)) {
    loop_.timers_.push_back(this);
  }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() override {
    loop_.thread_.check();
    std::erase(loop_.timers_, this);
  }

  void start() override {
    loop_.thread_.check();
    if (!running_)
      arm();
  }
  void stop() override {
    loop_.thread_.check();
    running_ = false;
  }
  [[nodiscard]] bool running() const override { return running_; }
  void set_interval(std::uint32_t milliseconds) override {
    loop_.thread_.check();
    interval_ = std::max(milliseconds, 1U);
    if (running_)
      arm();
  }

  [[nodiscard]] std::uint64_t due() const { return due_; }
  [[nodiscard]] std::uint64_t order() const { return turn_; }
  void fire() {
    arm();
    if (*busy_)
      return;
    const auto tick = tick_;
    const auto busy = busy_; // the tick may destroy this timer
    *busy = true;
    tick();
    *busy = false;
  }

private:
  void arm() {
    running_ = true;
    due_ = loop_.now_ + interval_;
    turn_ = ++loop_.order_;
  }

  EventLoop& loop_;
  std::uint32_t interval_;
  std::function<void()> tick_;
  bool running_ = false;
  std::shared_ptr<bool> busy_ = std::make_shared<bool>(false);
  std::uint64_t due_ = 0;
  std::uint64_t turn_ = 0;
};

class Waker final : public platform::Waker {
public:
  Waker(EventLoop& loop, std::function<void()> work) : loop_(loop), work_(std::move(work)) {
    loop_.wakers_.push_back(this);
  }
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;
  ~Waker() override {
    loop_.thread_.check();
    std::erase(loop_.wakers_, this);
  }

  void wake() override { pending_ = true; }
  // Consumes the wake; the returned work runs after the last access to a member, because it may destroy the waker.
  [[nodiscard]] std::function<void()> take() { return pending_.exchange(false) ? work_ : std::function<void()>{}; }

private:
  EventLoop& loop_;
  std::function<void()> work_;
  std::atomic<bool> pending_ = false;
};

EventLoop::~EventLoop() {
  assert(timers_.empty() && wakers_.empty() && "timers and wakers must go before their loop");
}

std::unique_ptr<platform::Timer> EventLoop::make_timer(std::uint32_t interval_ms, std::function<void()> tick) {
  thread_.check();
  return std::make_unique<Timer>(*this, interval_ms, std::move(tick));
}

std::unique_ptr<platform::Waker> EventLoop::make_waker(std::function<void()> work) {
  thread_.check();
  return std::make_unique<Waker>(*this, std::move(work));
}

std::unique_ptr<TopLevelWork> EventLoop::post_top_level(std::function<void()> work) {
  thread_.check();
  return top_level_.post(std::move(work));
}

std::uint32_t EventLoop::tick_count_ms() const {
  thread_.check();
  now_ += look_cost_;
  return static_cast<std::uint32_t>(now_);
}

void EventLoop::begin_end() {
  thread_.check();
  ending_ = true;
}

void EventLoop::quit() {
  thread_.check();
  quitting_ = true;
}

void EventLoop::run_top_level() {
  for (std::size_t left = top_level_.size(); left != 0 && depth_ == 0 && !quitting_; --left) {
    if (const auto work = top_level_.take())
      work();
  }
}

bool EventLoop::run_one_due() {
  const Nested nested(*this);
  for (Waker* waker : wakers_) {
    if (const auto work = waker->take()) {
      work();
      return true;
    }
  }
  Timer* timer = nullptr;
  for (Timer* each : timers_) {
    if (each->running() && each->due() <= now_ &&
        (timer == nullptr || std::pair(each->due(), each->order()) < std::pair(timer->due(), timer->order())))
      timer = each;
  }
  const auto plan = std::min_element(planned_.begin(), planned_.end(), [](const Planned& a, const Planned& b) {
    return std::pair(a.due, a.order) < std::pair(b.due, b.order);
  });
  const bool plan_due = plan != planned_.end() && plan->due <= now_;
  if (plan_due && (timer == nullptr || std::pair(plan->due, plan->order) < std::pair(timer->due(), timer->order()))) {
    const auto action = std::move(plan->action);
    planned_.erase(plan);
    action();
    return true;
  }
  if (timer == nullptr)
    return false;
  timer->fire();
  return true;
}

void EventLoop::run_due() {
  // Bounded: a handler that keeps creating work must not hang a test.
  run_top_level();
  for (int guard = 0; guard < 100000 && run_one_due(); ++guard)
    run_top_level();
}

void EventLoop::run_pending() {
  thread_.check();
  ++pending_runs_;
  const Nested nested(*this);
  run_due();
}

bool EventLoop::wait_a_little() {
  thread_.check();
  if (quitting_)
    return false;
  ++wait_passes_;
  const Nested nested(*this);
  run_due();
  if (!quitting_)
    now_ += wait_step_;
  return !quitting_;
}

bool EventLoop::next_due(std::uint64_t& due) const {
  bool found = false;
  const auto take = [&](std::uint64_t candidate) {
    if (!found || candidate < due)
      due = candidate;
    found = true;
  };
  for (const Timer* timer : timers_) {
    if (timer->running())
      take(timer->due());
  }
  for (const Planned& plan : planned_)
    take(plan.due);
  return found;
}

void EventLoop::advance(std::uint64_t ms) {
  const std::uint64_t aim = now_ + ms;
  run_due();
  std::uint64_t due = 0;
  while (next_due(due) && due <= aim) {
    now_ = std::max(now_, due);
    run_due();
  }
  now_ = std::max(now_, aim);
}

void EventLoop::at(std::uint64_t in_ms, std::function<void()> action) {
  planned_.push_back({now_ + in_ms, ++order_, std::move(action)});
}

void EventLoop::run() {
  thread_.check();
  run_due();
  std::uint64_t due = 0;
  while (!quitting_ && next_due(due)) {
    now_ = std::max(now_, due);
    run_due();
  }
}

} // namespace lumotune::platform::memory
