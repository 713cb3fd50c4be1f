// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/media/test_device.h"

#include "platform/threads/thread_name.h"
#include "tests/media/tone.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <new>
#include <thread>

namespace lumotune::media::rig {
namespace {

class TestOutput final : public AudioOutput {
public:
  explicit TestOutput(std::shared_ptr<TestDevice> device) : device_(std::move(device)) {}
  ~TestOutput() override {
    device_->enter(Call::close);
    halt();
  }

  [[nodiscard]] int preferred_rate() override {
    device_->enter(Call::rate);
    return device_->present ? device_->rate.load() : 0;
  }
  [[nodiscard]] bool open(Mixer& mixer, int /*latency_ms*/) override {
    device_->enter(Call::open);
    if (!device_->present)
      return false;
    ++device_->opened;
    mixer_ = &mixer;
    return true;
  }
  [[nodiscard]] bool start() override {
    device_->enter(Call::start);
    running_ = true;
    thread_ = std::thread([this] { loop(); });
    return true;
  }
  void stop() override {
    device_->enter(Call::stop);
    halt();
  }
  void set_volume(float volume) override {
    device_->enter(Call::volume);
    volume_ = volume;
  }
  [[nodiscard]] bool failed() const override { return failed_; }

private:
  void halt() {
    running_ = false;
    if (thread_.joinable())
      thread_.join();
  }
  void loop() {
    platform::name_this_thread("test device");
    auto due = std::chrono::steady_clock::now();
    while (running_ && !failed_) {
      if (device_->broken.exchange(false)) {
        failed_ = true;
        if (on_failed)
          on_failed();
        return;
      }
      std::vector<float> block(static_cast<std::size_t>(mixer_->rate() * TestDevice::block_ms / 1000) * 2);
      const std::uint64_t before = mixer_->ring.consumed();
      mixer_->render(block.data(), block.size() / 2);
      if (std::all_of(block.begin(), block.end(), [](float sample) { return sample == 0.0F; }))
        device_->silent_frames += mixer_->ring.consumed() - before;
      for (float& sample : block)
        sample *= volume_;
      device_->take(block);
      due += std::chrono::milliseconds(TestDevice::block_ms);
      std::this_thread::sleep_until(due);
    }
  }

  std::shared_ptr<TestDevice> device_;
  Mixer* mixer_ = nullptr;
  std::atomic<float> volume_ = 1.0F;
  std::atomic<bool> running_ = false;
  std::atomic<bool> failed_ = false;
  std::thread thread_;
};

} // namespace

std::function<std::unique_ptr<AudioOutput>()> TestDevice::factory() {
  return [device = shared_from_this()] {
    device->enter(Call::make);
    if (device->throws)
      throw std::bad_alloc();
    return std::make_unique<TestOutput>(device);
  };
}

void TestDevice::hang_in(Call call) {
  const std::lock_guard lock(hang_mutex_);
  hangs_in_ = call;
  hang_changed_.notify_all();
}

void TestDevice::enter(Call call) {
  std::unique_lock lock(hang_mutex_);
  if (hangs_in_ != call)
    return;
  ++hanging_;
  hang_changed_.wait(lock, [&] { return hangs_in_ != call; });
  --hanging_;
}

void TestDevice::take(const std::vector<float>& stereo) {
  const std::lock_guard lock(mutex_);
  for (std::size_t i = 0; i < stereo.size(); i += 2)
    heard_.push_back(stereo[i]);
  const auto most = static_cast<std::size_t>(rate) * 10;
  if (heard_.size() > most)
    heard_.erase(heard_.begin(), heard_.end() - static_cast<std::ptrdiff_t>(most / 2));
  ++blocks_;
  if (std::any_of(stereo.begin(), stereo.end(), [](float sample) { return std::abs(sample) > 1e-3F; }))
    ++loud_blocks_;
}

std::vector<float> TestDevice::newest(int milliseconds) const {
  const std::lock_guard lock(mutex_);
  const auto count = static_cast<std::size_t>(rate) * static_cast<std::size_t>(milliseconds) / 1000;
  if (heard_.size() < count)
    return {};
  return {heard_.end() - static_cast<std::ptrdiff_t>(count), heard_.end()};
}

bool TestDevice::hears(double hertz) const {
  return tone_share(newest(300), hertz, rate) > 0.9;
}

bool TestDevice::silent() const {
  const auto samples = newest(100);
  return !samples.empty() && std::all_of(samples.begin(), samples.end(), [](float sample) { return sample == 0.0F; });
}

bool TestDevice::has_heard(double hertz) const {
  const std::lock_guard lock(mutex_);
  const auto block = static_cast<std::size_t>(rate) / 20;
  for (std::size_t at = 0; at + block <= heard_.size(); at += block) {
    const auto start = heard_.begin() + static_cast<std::ptrdiff_t>(at);
    if (tone_share({start, start + static_cast<std::ptrdiff_t>(block)}, hertz, rate) > 0.5)
      return true;
  }
  return false;
}

void TestDevice::forget() {
  const std::lock_guard lock(mutex_);
  heard_.clear();
}

} // namespace lumotune::media::rig
