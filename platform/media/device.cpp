// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/device.h"

#include "platform/media/com_apartment.h"

#include <chrono>
#include <utility>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

constexpr auto try_again_after = 2000ms;   // while there is no device
constexpr auto look_after = 500ms;         // at a device that runs, whether it has failed
constexpr auto keep_running_for = 250ms;   // after a stop, so that what the device has taken is played out unheard
constexpr auto idle_close_after = 30000ms; // a device that nobody uses is given back

} // namespace

Device::Device(Mixer& mixer, OutputFactory make_output, int latency_ms)
    : mixer_(mixer), make_output_(std::move(make_output)), latency_ms_(latency_ms), thread_([this] { loop(); }) {}

Device::~Device() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void Device::run() {
  {
    const std::lock_guard lock(mutex_);
    wanted_ = true;
  }
  changed_.notify_all();
}

void Device::flow() {
  {
    const std::lock_guard lock(mutex_);
    if (flowing_)
      return;
    flowing_ = true;
  }
  changed_.notify_all();
}

void Device::silence() {
  {
    const std::lock_guard lock(mutex_);
    wanted_ = false;
    flowing_ = false;
  }
  changed_.notify_all();
}

void Device::wait_for_rate() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, 3s, [this] { return rate_settled_ || ending_; });
}

void Device::open_if_needed() {
  if (output_ != nullptr && output_->failed()) {
    output_.reset();
    started_ = false;
    consuming_.store(false, std::memory_order_release);
  }
  if (output_ != nullptr)
    return;
  auto output = make_output_();
  const bool opened = output != nullptr && output->open(mixer_, latency_ms_, !rate_fixed_);
  if (opened)
    output_ = std::move(output);
  missing_.store(!opened, std::memory_order_release);
  // From now on the ring holds samples of this rate; another device has to take them as they are.
  rate_fixed_ = true;
  const std::lock_guard lock(mutex_);
  rate_settled_ = true;
  changed_.notify_all();
}

void Device::start_output(bool flowing) {
  open_if_needed();
  if (output_ == nullptr || !flowing)
    return;
  output_->set_volume(1.0F);
  if (!started_) {
    consuming_.store(true, std::memory_order_release);
    started_ = output_->start();
    if (!started_) {
      output_.reset();
      consuming_.store(false, std::memory_order_release);
      missing_.store(true, std::memory_order_release);
    }
  }
}

void Device::stop_output() {
  if (output_ != nullptr && started_)
    output_->stop();
  started_ = false;
  consuming_.store(false, std::memory_order_release);
}

void Device::loop() {
  const ComApartment apartment;
  std::unique_lock lock(mutex_);
  while (!ending_) {
    if (wanted_) {
      const bool flowing = flowing_;
      lock.unlock();
      start_output(flowing);
      lock.lock();
      const auto pause = output_ == nullptr ? try_again_after : look_after;
      changed_.wait_for(lock, pause,
                        [&] { return ending_ || !wanted_ || (flowing_ && !flowing && output_ != nullptr); });
      continue;
    }
    missing_.store(false, std::memory_order_release);
    if (output_ != nullptr && started_) {
      lock.unlock();
      output_->set_volume(0.0F);
      lock.lock();
      // Old sound must be gone before a new stream is let out.
      changed_.wait_for(lock, keep_running_for, [this] { return ending_; });
      if (!wanted_ && !ending_) {
        lock.unlock();
        stop_output();
        lock.lock();
      }
      continue;
    }
    const bool woken = changed_.wait_for(lock, idle_close_after, [this] { return ending_ || wanted_; });
    if (!woken && output_ != nullptr) {
      lock.unlock();
      output_.reset();
      lock.lock();
    }
  }
  lock.unlock();
  stop_output();
  output_.reset();
}

} // namespace lumotune::media
