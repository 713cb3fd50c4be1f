// SPDX-License-Identifier: LGPL-2.1-or-later
// Stations that drop, hang or send nothing.
#include "tests/media/player_rig.h"

#include <atomic>
#include <chrono>
#include <future>
#include <memory>

namespace lumotune::media::rig {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

class EngineOutage : public PlayerTest {
protected:
  FakeRadio radio;
};

TEST_F(EngineOutage, ComesBackAfterADrop) {
  play(radio.url("/live/440.mp3?burst=1&then=880.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  radio.command("close");
  ASSERT_TRUE(until_said("lost, retry in ")) << told();
  EXPECT_EQ(states.back(), 11);
  ASSERT_TRUE(until_said("not answering, retry in ")) << told();
  radio.command("open");
  ASSERT_TRUE(until_hears(880)) << told();
  EXPECT_EQ(states.back(), 3);
}

TEST_F(EngineOutage, ComesBackAfterAnErrorPage) {
  play(radio.url("/live/440.mp3?fails=2"));
  ASSERT_TRUE(until_said("not found (404), retry in 1 s")) << told();
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_EQ(radio.hits("/live/440.mp3"), 3);
}

TEST_F(EngineOutage, ComesBackAfterAnErrorOfTheServer) {
  play(radio.url("/live/440.mp3?fails=1&code=503"));
  ASSERT_TRUE(until_said("refused (5")) << told();
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(EngineOutage, ComesBackWhenTheStationSendsNothingAnyMore) {
  options.timeout_ms = 4000; // later than what was sent ends
  play(radio.url("/live/440.mp3?burst=2.5&mute=0.1&then=880.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  ASSERT_TRUE(until([this] { return !states.empty() && states.back() == 6; })) << told(); // it says that it ran dry
  EXPECT_TRUE(until_hears(880)) << told();
}

// A stall is two fifths of the silence that loses a station.
TEST_F(EngineOutage, SaysThatNothingArrivesWhileTheBufferStillPlays) {
  options.timeout_ms = 2500;
  play(radio.url("/live/440.mp3?burst=4.5&mute=0.1"));
  ASSERT_TRUE(until_hears(440)) << told();
  ASSERT_TRUE(until([this] { return states.back() == 6; })) << told();
  EXPECT_TRUE(device->hears(440)) << told();
  EXPECT_GE(player().status().percent, 20) << "of the four seconds that would be plenty";
  EXPECT_LE(player().status().percent, 90);
  EXPECT_TRUE(until_said("lost, retry in ")) << told();
}

TEST_F(EngineOutage, AStallThatEndsInTimeIsNoLoss) {
  options.timeout_ms = 2500;
  play(radio.url("/live/440.mp3?burst=6&mute=0.1&back=5.1"));
  ASSERT_TRUE(until_hears(440)) << told();
  ASSERT_TRUE(until([this] { return states.back() == 6; })) << told();
  EXPECT_TRUE(device->hears(440)) << told();
  ASSERT_TRUE(until([this] { return states.back() == 3; })) << told();
  EXPECT_TRUE(device->hears(440)) << told();
  EXPECT_EQ(radio.hits("/live/440.mp3"), 1);
  EXPECT_EQ(told().find("lost"), std::string::npos) << told();
}

TEST_F(EngineOutage, CountsDownAndStopWinsWhileItWaits) {
  options.retry_scale = 20; // four seconds at least
  play(radio.url("/nothing"));
  ASSERT_TRUE(until_said("retry in ")) << told();
  const auto first = texts.back();
  ASSERT_TRUE(until([&, this] { return texts.back() != first && says("retry in "); })) << told();
  player().stop();
  ASSERT_TRUE(until([this] { return status() == "stopped"; })) << told();
  const int hits = radio.hits("/nothing");
  EXPECT_EQ(texts.back().find("retry"), std::string::npos) << told();
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  EXPECT_EQ(radio.hits("/nothing"), hits) << "what was waited for is not tried any more";
}

TEST_F(EngineOutage, NeverMakesTheCallerWaitForAServerThatHangs) {
  options.timeout_ms = 60000;
  play(radio.url("/hang"));
  ASSERT_TRUE(until([this] { return radio.hits("/hang") == 1; })) << told();
  EXPECT_EQ(status(), "connecting");
  const auto start = Clock::now();
  player().stop();
  EXPECT_EQ(status(), "stopped");
  play(radio.url("/live/440.mp3"));
  player().set_volume(50);
  EXPECT_LT(Clock::now() - start, 5s); // of the minute that the server is given
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(EngineOutage, GivesUpAServerThatHangs) {
  options.timeout_ms = 500;
  play(radio.url("/hang"));
  EXPECT_TRUE(until_said("not answering, retry in ")) << told();
  EXPECT_TRUE(until([this] { return radio.hits("/hang") >= 2; })) << told();
}

TEST_F(EngineOutage, EndsWhileAServerHangs) {
  options.timeout_ms = 60000;
  make();
  play(radio.url("/hang"));
  ASSERT_TRUE(until([this] { return radio.hits("/hang") == 1; })) << told();
  const auto start = Clock::now();
  make(); // another one in its place
  EXPECT_LT(Clock::now() - start, 10s);
}

// What nothing interrupts, as a name look-up: the worker is left behind and another one plays.
TEST_F(EngineOutage, LeavesAStuckWorkerBehind) {
  auto free = std::make_shared<std::promise<void>>();
  const std::shared_future<void> freed = free->get_future().share();
  enum class Worker { elsewhere, stuck, awake };
  const auto worker = std::make_shared<std::atomic<Worker>>(Worker::elsewhere);
  options.proxy = [freed, worker](const std::string& address) {
    if (address.find("stuck") != std::string::npos) {
      *worker = Worker::stuck;
      freed.wait();
      *worker = Worker::awake;
    }
    return std::string();
  };
  play(radio.url("/stuck"));
  ASSERT_TRUE(until([&] { return *worker == Worker::stuck; }));
  play(radio.url("/live/440.mp3")); // which comes back, or this test would not
  EXPECT_TRUE(until_hears(440)) << told();
  free->set_value();
  ASSERT_TRUE(until([&] { return *worker == Worker::awake; }));
  const std::uint64_t blocks = device->blocks();
  ASSERT_TRUE(until([&, this] { return device->blocks() >= blocks + 40; }));
  EXPECT_TRUE(device->hears(440)) << "the old one disturbs nothing";
  EXPECT_EQ(radio.hits("/stuck"), 0);
}

} // namespace
} // namespace lumotune::media::rig
