// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/device.h"

#include "platform/common/thread_check.h"
#include "platform/media/com_apartment.h"
#include "platform/threads/thread_name.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto retry_interval = 1000ms;    // while there is no device: one that comes is heard within two seconds
constexpr auto shortest_life = 500ms;      // a device that fails is replaced at once, but no sooner than this
constexpr auto muted_run_time = 250ms;     // after a stop, the device plays what it has taken, muted
constexpr auto idle_close_after = 30000ms; // an unused device is closed

} // namespace

struct Device::State {
  State(std::shared_ptr<Mixer> its_mixer, OutputFactory make, int latency)
      : mixer(std::move(its_mixer)), make_output(std::move(make)), latency_ms(latency) {}

  // Constant, or safe for every thread.
  const std::shared_ptr<Mixer> mixer;
  const OutputFactory make_output;
  const int latency_ms;
  std::atomic<bool> missing = false;
  std::atomic<Clock::rep> called_at = 0; // when the current call into the sound system began; 0: none

  // Guarded by `mutex`.
  std::mutex mutex;
  std::condition_variable changed;
  bool wanted = false;
  bool flowing = false;
  bool leftover = false; // the device still has sound of a stream that is no longer wanted
  bool output_failed = false;
  bool ending = false;
  bool ended = false;
  bool rate_settled = false;
  bool consuming = false; // the sound callback runs, or may at any moment

  void run();                       // the device thread
  void set(bool& what, bool value); // of these; any thread

private:
  // Marks a call into the sound system by its lifetime. Threads that the sound system creates in it take over the name
  // on some systems.
  class Calling {
  public:
    explicit Calling(State& state) : state_(state) {
      state_.device_thread.check();
      platform::name_this_thread("sound system");
      state_.called_at = Clock::now().time_since_epoch().count();
    }
    Calling(const Calling&) = delete;
    Calling& operator=(const Calling&) = delete;
    ~Calling() {
      state_.called_at = 0;
      platform::name_this_thread("sound device");
    }

  private:
    State& state_;
  };

  void step(std::unique_lock<std::mutex>& lock);
  void fade_out(std::unique_lock<std::mutex>& lock);
  void open_if_needed();
  void start_output(bool now_flowing);
  void stop_output();
  void drop_output();
  void set_consuming(bool on) {
    const std::lock_guard lock(mutex);
    consuming = on;
  }
  void settle(int preferred_rate);

  // Owned by the device thread.
  platform::ThreadCheck device_thread{"device thread"};
  std::unique_ptr<AudioOutput> output;
  bool started = false;
  Clock::time_point opened_at;
};

Device::Device(std::shared_ptr<Mixer> mixer, OutputFactory make_output, int latency_ms)
    : state_(std::make_shared<State>(std::move(mixer), std::move(make_output), latency_ms)) {
  std::thread([state = state_] {
    platform::name_this_thread("sound device");
    {
      const ComApartment apartment;
      state->run();
    }
    const std::lock_guard lock(state->mutex);
    state->ended = true;
    state->changed.notify_all();
  }).detach();
}

void Device::run() {
  state_->set(state_->wanted, true);
}

void Device::flow() {
  const std::lock_guard lock(state_->mutex);
  if (!std::exchange(state_->flowing, true))
    state_->changed.notify_all();
}

void Device::silence() {
  const std::lock_guard lock(state_->mutex);
  state_->wanted = false;
  if (std::exchange(state_->flowing, false))
    state_->leftover = true;
  state_->changed.notify_all();
}

void Device::end() {
  state_->set(state_->ending, true);
}

bool Device::wait_ended(std::chrono::milliseconds time) {
  std::unique_lock lock(state_->mutex);
  return state_->changed.wait_for(lock, time, [this] { return state_->ended; });
}

bool Device::while_unused(const std::function<void()>& work) {
  const std::lock_guard lock(state_->mutex);
  if (!state_->consuming)
    work();
  return !state_->consuming;
}

bool Device::hung() const {
  const Clock::rep began = state_->called_at;
  return began != 0 && Clock::now().time_since_epoch() - Clock::duration(began) > hung_after;
}

bool Device::missing() const {
  return state_->missing.load(std::memory_order_acquire) || hung();
}

bool Device::wait_for_rate(std::chrono::milliseconds time) {
  std::unique_lock lock(state_->mutex);
  return state_->changed.wait_for(lock, time, [this] { return state_->rate_settled || state_->ending; });
}

void Device::settle_rate() {
  const std::lock_guard lock(state_->mutex);
  state_->rate_settled = true;
}

// From now on the ring holds samples of this rate; any later device must accept it.
void Device::State::settle(int preferred_rate) {
  const std::lock_guard lock(mutex);
  if (!rate_settled && preferred_rate > 0)
    mixer->set_rate(preferred_rate);
  rate_settled = true;
  changed.notify_all();
}

void Device::State::set(bool& what, bool value) {
  const std::lock_guard lock(mutex);
  what = value;
  changed.notify_all();
}

void Device::State::open_if_needed() {
  set(output_failed, false); // from now on a failure is news
  if (output != nullptr && output->failed() && Clock::now() - opened_at >= shortest_life)
    drop_output();
  if (output != nullptr)
    return;
  const Calling calling(*this);
  opened_at = Clock::now();
  auto made = make_output();
  if (made != nullptr)
    made->on_failed = [this] { set(output_failed, true); };
  settle(made == nullptr ? 0 : made->preferred_rate());
  const bool opened = made != nullptr && made->open(*mixer, latency_ms);
  if (opened)
    output = std::move(made);
  missing.store(!opened, std::memory_order_release);
}

void Device::State::start_output(bool now_flowing) {
  open_if_needed();
  if (output == nullptr || !now_flowing)
    return;
  const Calling calling(*this);
  output->set_volume(1.0F);
  if (started)
    return;
  set_consuming(true);
  started = output->start();
  if (started)
    return;
  drop_output();
  missing.store(true, std::memory_order_release);
}

void Device::State::stop_output() {
  const Calling calling(*this);
  if (output != nullptr && started)
    output->stop();
  started = false;
  set_consuming(false);
}

void Device::State::drop_output() {
  const Calling calling(*this);
  output.reset();
  started = false;
  set_consuming(false);
}

// The device plays what it has buffered, muted, so that none of it is heard when the next stream starts. One that is
// wanted already has its first sound behind that, so it waits for as long as the buffer lasts and no longer.
void Device::State::fade_out(std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  {
    const Calling calling(*this);
    output->set_volume(0.0F);
  }
  lock.lock();
  const auto muted_at = Clock::now();
  const auto buffered = std::min<std::chrono::milliseconds>(std::chrono::milliseconds(latency_ms), muted_run_time);
  changed.wait_until(lock, muted_at + buffered, [this] { return ending; });
  changed.wait_until(lock, muted_at + muted_run_time, [this] { return ending || wanted; });
  if (wanted || ending)
    return;
  lock.unlock();
  stop_output();
  lock.lock();
}

void Device::State::step(std::unique_lock<std::mutex>& lock) {
  if (std::exchange(leftover, false) && output != nullptr && started)
    return fade_out(lock);
  if (wanted) {
    const bool now_flowing = flowing;
    lock.unlock();
    start_output(now_flowing);
    lock.lock();
    const auto left = [this] { return ending || !wanted || leftover; };
    if (output == nullptr)
      changed.wait_for(lock, retry_interval, left);
    else if (output->failed())
      changed.wait_until(lock, opened_at + shortest_life, left);
    else
      changed.wait(lock, [&] { return left() || output_failed || (flowing && !now_flowing); });
    return;
  }
  missing.store(false, std::memory_order_release);
  if (output != nullptr && started)
    return fade_out(lock);
  const bool woken = changed.wait_for(lock, idle_close_after, [this] { return ending || wanted; });
  if (!woken && output != nullptr) {
    lock.unlock();
    drop_output();
    lock.lock();
  }
}

// An exception, such as out of memory, counts as a missing device and is retried.
void Device::State::run() {
  device_thread.rebind();
  std::unique_lock lock(mutex);
  while (!ending) {
    try {
      step(lock);
    } catch (...) {
      if (lock.owns_lock())
        lock.unlock();
      drop_output();
      missing.store(true, std::memory_order_release);
      settle(0);
      lock.lock();
      changed.wait_for(lock, retry_interval, [this] { return ending; });
    }
  }
  lock.unlock();
  try {
    stop_output();
  } catch (...) { // it is closed next in any case
  }
  drop_output();
}

} // namespace lumotune::media
