// SPDX-License-Identifier: LGPL-2.1-or-later
// The worker's attempts on a clock that only its waits and the test move.
#include "platform/media/stream_worker.h"

#include "platform/media/engine_channels.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

class SteppedClock final : public WorkerClock {
public:
  [[nodiscard]] Time now() const override { return now_; }
  [[nodiscard]] bool wait(Mailbox& mailbox, std::uint64_t stream, std::chrono::milliseconds time) override {
    now_ += time;
    return mailbox.newer_than(stream);
  }
  void pass(std::chrono::milliseconds time) { now_ += time; }

private:
  Time now_{};
};

// The delays between attempts that each fail without sound after that long.
std::vector<WorkerClock::Time::duration> delays_after(std::chrono::milliseconds attempt, const PlayerOptions& options) {
  constexpr std::size_t most = 12;
  const auto channels = std::make_shared<EngineChannels>(
      std::make_shared<Board>(), [] { return std::unique_ptr<AudioOutput>(); }, 100);
  const auto clock = std::make_shared<SteppedClock>();
  std::vector<WorkerClock::Time::duration> delays;
  auto ended = clock->now();
  WorkerSeams seams;
  seams.clock = clock;
  seams.seed = 1;
  seams.connect = [&](const Wish&, CurrentWish&, const WorkerSeams::Play&) {
    delays.push_back(clock->now() - ended);
    clock->pass(attempt);
    ended = clock->now();
    if (delays.size() > most)
      channels->mailbox.close();
    return Attempt{Outcome::failed, Trouble::not_answering};
  };
  StreamWorker worker(options, channels, seams);
  channels->mixer->want(1);
  channels->device.run();
  channels->mailbox.post({1, "http://station/", true, platform::AddressOrigin::station});
  worker.run();
  channels->device.end();
  delays.erase(delays.begin()); // the first attempt's
  return delays;
}

TEST(StreamWorker, CountsASilentAttemptAsDelay) {
  for (const auto& delay : delays_after(10s, {}))
    EXPECT_LE(delay, 5s);
  const auto refused = delays_after(0ms, {});
  EXPECT_GT(*std::max_element(refused.begin(), refused.end()), 10s);
}

// Where delays are scaled, so are attempts: one of two seconds fills ten.
TEST(StreamWorker, CountsItInTheScaleOfTheDelays) {
  PlayerOptions options;
  options.retry_scale = 0.2;
  for (const auto& delay : delays_after(2s, options))
    EXPECT_LE(delay, 1s);
}

} // namespace
} // namespace lumotune::media
