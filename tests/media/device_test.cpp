// SPDX-License-Identifier: LGPL-2.1-or-later
// The device thread on a sound system that notes what it is asked to do.
#include "platform/media/device.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

// What the outputs were asked: "open", "start", "stop", "mute", "sound", "close". Any thread.
class Diary {
public:
  void note(const std::string& what) {
    const std::lock_guard lock(mutex_);
    text_ += what + " ";
    changed_.notify_all();
  }
  // Waits until that is the end of it; bounds a test that fails.
  [[nodiscard]] bool ends(const std::string& with) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, 20s, [&] { return text_.ends_with(with); });
  }
  [[nodiscard]] std::string take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(text_, {});
  }
  // The output that is open loses its device.
  void fail() {
    std::unique_lock lock(mutex_);
    failed_ = true;
    const auto told = told_;
    lock.unlock();
    told();
  }
  [[nodiscard]] bool failed() {
    const std::lock_guard lock(mutex_);
    return failed_;
  }
  void open(std::function<void()> told) {
    const std::lock_guard lock(mutex_);
    told_ = std::move(told);
    failed_ = false;
  }

private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string text_;
  std::function<void()> told_;
  bool failed_ = false;
};

class NotingOutput final : public AudioOutput {
public:
  explicit NotingOutput(Diary& diary) : diary_(diary) {}
  ~NotingOutput() override { diary_.note("close"); }
  [[nodiscard]] int preferred_rate() override { return 48000; }
  [[nodiscard]] bool open(Mixer& /*mixer*/, int /*latency_ms*/) override {
    diary_.open(on_failed);
    diary_.note("open");
    return true;
  }
  [[nodiscard]] bool start() override {
    diary_.note("start");
    return true;
  }
  void stop() override { diary_.note("stop"); }
  void set_volume(float volume) override { diary_.note(volume == 0.0F ? "mute" : "sound"); }
  [[nodiscard]] bool failed() const override { return diary_.failed(); }

private:
  Diary& diary_;
};

class DeviceTest : public testing::Test {
protected:
  void make(int latency_ms) {
    device = std::make_unique<Device>(
        std::make_shared<Mixer>(1000, 48000), [this] { return std::make_unique<NotingOutput>(diary); }, latency_ms);
  }
  ~DeviceTest() override {
    device->end();
    EXPECT_TRUE(device->wait_ended(20s));
  }
  void play() {
    device->run();
    device->flow();
  }

  Diary diary;
  std::unique_ptr<Device> device;
};

// Whatever the device thread sees of the moment between the two stations. The old one's sound lasts no time here.
TEST_F(DeviceTest, MutesTheOldStreamInAChangeForAsLongAsItLasts) {
  make(0);
  play();
  ASSERT_TRUE(diary.ends("start "));
  (void)diary.take();
  constexpr int changes = 20;
  constexpr auto mute_of_a_stop = 250ms;
  const auto begun = std::chrono::steady_clock::now();
  for (int i = 0; i < changes; ++i) {
    device->silence();
    play();
    ASSERT_TRUE(diary.ends("sound "));
    EXPECT_EQ(diary.take(), "mute sound ") << i;
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begun, changes * mute_of_a_stop / 2);
}

TEST_F(DeviceTest, StopsWhenNothingIsWanted) {
  make(0);
  play();
  ASSERT_TRUE(diary.ends("start "));
  device->silence();
  EXPECT_TRUE(diary.ends("mute stop "));
  play();
  EXPECT_TRUE(diary.ends("stop sound start "));
}

TEST_F(DeviceTest, ReplacesAnOutputThatFailsWhenItSaysSo) {
  make(100);
  play();
  ASSERT_TRUE(diary.ends("open sound start "));
  diary.fail();
  EXPECT_TRUE(diary.ends("close open sound start "));
}

} // namespace
} // namespace lumotune::media
