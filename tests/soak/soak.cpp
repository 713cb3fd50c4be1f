// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/soak/soak.h"

#include "platform/media/engine_channels.h"
#include "platform/media/stream_worker.h"
#include "tests/soak/station.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace lumotune::media::soak {
namespace {

using namespace std::chrono_literals;

constexpr int device_rate = 48000;
constexpr auto device_block = 10ms;

// Which device is open, shared with the device thread.
enum class DeviceState { stopped, running, broken };

struct SharedState {
  std::atomic<DeviceState> state = DeviceState::stopped;
  void set(DeviceState next) {
    state = next;
    state.notify_all();
  }
  void fail() {
    set(DeviceState::broken);
    const std::lock_guard lock(mutex);
    if (told)
      told();
  }

  std::mutex mutex;
  std::function<void()> told; // of the output that is open; empty while there is none
  void tell(std::function<void()> next) {
    const std::lock_guard lock(mutex);
    told = std::move(next);
  }
};

// A device without a thread: the clock renders for it.
class SteppedOutput final : public AudioOutput {
public:
  explicit SteppedOutput(std::shared_ptr<SharedState> device) : device_(std::move(device)) {}
  ~SteppedOutput() override {
    device_->tell({});
    device_->set(DeviceState::stopped);
  }
  [[nodiscard]] int preferred_rate() override { return device_rate; }
  [[nodiscard]] bool open(Mixer& /*mixer*/, int /*latency_ms*/) override {
    device_->tell(on_failed);
    return true;
  }
  [[nodiscard]] bool start() override {
    device_->set(DeviceState::running);
    return true;
  }
  void stop() override { device_->set(DeviceState::stopped); }
  void set_volume(float /*volume*/) override {}
  [[nodiscard]] bool failed() const override { return device_->state == DeviceState::broken; }

private:
  std::shared_ptr<SharedState> device_;
};

long status_of(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(key + ":"))
      return std::stol(line.substr(key.size() + 1));
  }
  return 0;
}

long heap_kb() {
  const std::size_t bytes = __sanitizer_get_current_allocated_bytes != nullptr
                                ? __sanitizer_get_current_allocated_bytes()
                                : mallinfo2().uordblks;
  return static_cast<long>(bytes / 1024);
}

class Simulation final : public WorkerClock {
public:
  Simulation(const Settings& settings, const std::function<void(const Sample&)>& sampled)
      : settings_(settings),
        sampled_(sampled),
        end_(now_ + std::chrono::minutes(settings.minutes)),
        next_sample_(now_ + std::chrono::minutes(settings.sample_minutes)),
        plan_(plan_faults(now_, end_, settings)),
        random_(settings.seed),
        channels_(std::make_shared<EngineChannels>(
            std::make_shared<Board>(), [this] { return std::make_unique<SteppedOutput>(device_); }, 100)) {}

  [[nodiscard]] Time now() const override { return now_; }
  [[nodiscard]] bool wait(Mailbox& mailbox, std::uint64_t stream, Millis time) override {
    ++now_so_far_.waits;
    for (; time > 0ms && !mailbox.newer_than(stream); time -= device_block)
      advance(mailbox);
    return mailbox.newer_than(stream);
  }

  Result run(const std::shared_ptr<Simulation>& self) {
    WorkerSeams seams;
    seams.clock = self;
    seams.seed = settings_.seed;
    seams.connect = [this](const Wish&, CurrentWish& wish, const WorkerSeams::Play& play) {
      return connect(wish, play);
    };
    StreamWorker worker({}, channels_, seams);
    channels_->board->expect(1, {});
    channels_->mixer->want(1);
    channels_->device.run();
    channels_->mailbox.post({1, "http://soak/", true, platform::AddressOrigin::station});
    worker.run();
    channels_->device.end();
    (void)channels_->device.wait_ended(5s);
    for (const Fault& fault : plan_)
      ++result_.faults[fault.name];
    if (waiting_for_sound_)
      result_.unrecovered.push_back(plan_.at(fault_).name);
    return std::move(result_);
  }

private:
  // What is wrong now.
  [[nodiscard]] const Fault& current() const {
    static const Fault well;
    return active_ ? plan_[fault_] : well;
  }

  Attempt connect(CurrentWish& wish, const WorkerSeams::Play& play) {
    const Kind kind = current().kind;
    if (kind == Kind::silent || kind == Kind::stall) {
      for (Time limit = now_ + 10s; now_ < limit;) {
        if (wish.wait(100ms) || wish.interrupted())
          return {Outcome::cancelled};
      }
      return {Outcome::failed, Trouble::not_answering};
    }
    if (wish.wait(50ms)) // the way to the server and back
      return {Outcome::cancelled};
    if (kind == Kind::refused)
      return {Outcome::failed, Trouble::not_answering};
    if (kind == Kind::busy)
      return {Outcome::failed, Trouble::refused_by_server, 503, 10s};
    auto file = settings_.sound.begin();
    std::advance(file, static_cast<std::ptrdiff_t>(connections_++ % settings_.sound.size()));
    SimulatedSource source(
        settings_, file->first, wish, [this]() -> const Fault& { return current(); },
        [this] { return station_drift_; });
    return source.opened() ? play(source) : Attempt{Outcome::failed, Trouble::unknown_format};
  }

  // Ten milliseconds of the world.
  void advance(Mailbox& mailbox) {
    now_ += device_block;
    if (now_ >= next_sample_)
      sample();
    if (now_ >= end_)
      return mailbox.close();
    drift();
    run_device();
    run_faults();
    measure();
  }

  // Both clocks wander within what crystals do.
  void drift() {
    if (now_ < next_drift_)
      return;
    next_drift_ = now_ + 10min;
    std::uniform_real_distribution<double> millionths(-300, 300);
    station_drift_ = millionths(random_);
    device_drift_ = millionths(random_);
  }

  // The device thread lives in real time: it starts or replaces the device while the simulated time stands still.
  void run_device() {
    DeviceState state = device_->state;
    for (; channels_->mixer->flows() && state != DeviceState::running; state = device_->state)
      device_->state.wait(state);
    if (state != DeviceState::running)
      return;
    frames_ += device_rate * std::chrono::duration<double>(device_block).count() * (1 + device_drift_ / 1e6);
    const auto count = static_cast<std::size_t>(frames_);
    frames_ -= static_cast<double>(count);
    block_.resize(count * 2);
    channels_->mixer->render(block_.data(), count);
  }

  void run_faults() {
    if (!active_ && fault_ < plan_.size() && now_ >= plan_[fault_].begin && !waiting_for_sound_) {
      active_ = true;
      if (plan_[fault_].kind == Kind::device)
        device_->fail();
    }
    // One that takes no time is met once.
    if (active_ && now_ >= std::max(plan_[fault_].end, plan_[fault_].begin + 2 * device_block + 600ms)) {
      active_ = false;
      waiting_for_sound_ = true;
    }
    if (waiting_for_sound_ && flows()) {
      waiting_for_sound_ = false;
      calm_since_ = now_;
      const auto took = std::chrono::duration_cast<Millis>(now_ - plan_[fault_].end).count();
      now_so_far_.longest_recovery_ms = std::max(now_so_far_.longest_recovery_ms, static_cast<std::uint32_t>(took));
      ++now_so_far_.recovered;
      ++fault_;
      now_so_far_.faults = static_cast<int>(fault_);
    }
  }

  [[nodiscard]] bool flows() { return channels_->mixer->flows() && channels_->board->read().phase == Phase::playing; }

  void measure() {
    if (active_ || waiting_for_sound_)
      return;
    const bool flowing = channels_->mixer->flows();
    if (std::exchange(flowed_, flowing) && !flowing && now_ - calm_since_ > 1s)
      ++now_so_far_.underruns;
    // The buffer fills again for a while after a fault.
    if (!flowing || now_ - calm_since_ < 30s)
      return;
    const auto level = static_cast<std::uint32_t>(channels_->mixer->ring.level() * 1000 / device_rate);
    now_so_far_.lowest_ms = levels_ == 0 ? level : std::min(now_so_far_.lowest_ms, level);
    now_so_far_.highest_ms = std::max(now_so_far_.highest_ms, level);
    sum_ += level;
    ++levels_;
  }

  void sample() {
    next_sample_ += std::chrono::minutes(settings_.sample_minutes);
    Sample& sample = now_so_far_;
    sample.minute += settings_.sample_minutes;
    sample.mean_ms = levels_ == 0 ? 0 : static_cast<std::uint32_t>(sum_ / levels_);
    sample.rss_kb = status_of("VmRSS");
    sample.heap_kb = heap_kb();
    sample.threads = static_cast<int>(status_of("Threads"));
    result_.samples.push_back(sample);
    if (sampled_)
      sampled_(sample);
    sample.lowest_ms = sample.highest_ms = 0;
    sum_ = levels_ = 0;
  }

  const Settings& settings_;
  const std::function<void(const Sample&)>& sampled_;
  Time now_{24h};
  const Time end_;
  Time next_sample_;
  Time next_drift_;
  const std::vector<Fault> plan_;
  std::minstd_rand random_;
  const std::shared_ptr<SharedState> device_ = std::make_shared<SharedState>();
  const std::shared_ptr<EngineChannels> channels_;

  double station_drift_ = 0;
  double device_drift_ = 0;
  double frames_ = 0; // due to be played
  std::vector<float> block_;
  std::size_t connections_ = 0;

  std::size_t fault_ = 0;
  bool active_ = false;
  bool waiting_for_sound_ = false;
  bool flowed_ = false;
  Time calm_since_{24h};
  Sample now_so_far_;
  std::uint64_t sum_ = 0;
  std::uint64_t levels_ = 0;
  Result result_;
};

} // namespace

Result run(const Settings& settings, const std::function<void(const Sample&)>& sampled) {
  const auto simulation = std::make_shared<Simulation>(settings, sampled);
  return simulation->run(simulation);
}

} // namespace lumotune::media::soak
