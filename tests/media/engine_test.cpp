// SPDX-License-Identifier: LGPL-2.1-or-later
// What a listener does, what a station answers, what becomes of the sound device.
#include "tests/media/player_rig.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace lumotune::media::rig {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

class Engine : public PlayerTest {
protected:
  FakeRadio radio;
};

TEST_F(Engine, PlaysALiveStreamAndSaysSo) {
  play(radio.url("/live/440.mp3?br=128&title=53747265616d5469746c653d2741202d2042273b"));
  ASSERT_TRUE(until_hears(440)) << told();
  ASSERT_TRUE(until([this] { return status() == "playing MP3 128 kbps 44100 Hz: A - B"; })) << told();
  EXPECT_EQ(texts.front(), "connecting");
  ASSERT_GE(states.size(), 2U);
  EXPECT_EQ(states.front(), 9);
  EXPECT_EQ(states.back(), 3);
}

TEST_F(Engine, ItsThreadsHaveNames) {
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  std::set<std::string> names;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream comm(task.path() / "comm");
    std::string name;
    (void)std::getline(comm, name);
    names.insert(name);
  }
  EXPECT_TRUE(names.contains("stream worker"));
  EXPECT_TRUE(names.contains("sound device"));
}

TEST_F(Engine, WithoutAnAddressSaysSo) {
  player().play();
  EXPECT_TRUE(until([this] { return says("no address"); })) << told();
  play("ftp://127.0.0.1/x");
  EXPECT_TRUE(until([this] { return says("unsupported address"); })) << told();
}

TEST_F(Engine, WaitsForPlayWhereNothingStartsByItself) {
  player().set_auto_start(false);
  play(radio.url("/live/440.mp3"));
  EXPECT_EQ(status(), "stopped");
  player().play();
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_EQ(radio.hits("/live/440.mp3"), 1) << "by the wish alone";
  play(radio.url("/live/880.mp3")); // a new address stops what plays
  EXPECT_TRUE(until([this] { return device->silent(); }));
  EXPECT_EQ(status(), "stopped");
}

TEST_F(Engine, IsSilentAtOnceWhenStopped) {
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  const std::uint64_t loud = device->loud_blocks();
  player().stop();
  ASSERT_TRUE(until([this] { return device->silent(); })) << told();
  EXPECT_LE(device->loud_blocks() - loud, 4U); // of 10 ms each
  EXPECT_EQ(status(), "stopped");
  EXPECT_EQ(player().played_ms(), 0U);
  EXPECT_EQ(states.back(), 1);
}

TEST_F(Engine, IsLiveAfterStopAndPlay) {
  play(radio.url("/live/440.mp3?burst=6&then=880.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  player().stop();
  ASSERT_TRUE(until([this] { return device->silent(); }));
  device->forget();
  player().play();
  ASSERT_TRUE(until_hears(880)) << told();
  EXPECT_FALSE(device->has_heard(440));
}

TEST_F(Engine, LetsNothingOfTheOldStationIntoTheNew) {
  play(radio.url("/live/440.mp3?burst=6"));
  ASSERT_TRUE(until_hears(440)) << told();
  play(radio.url("/live/880.mp3"));
  pass(30);
  device->forget();
  ASSERT_TRUE(until_hears(880)) << told();
  EXPECT_FALSE(device->has_heard(440));
}

TEST_F(Engine, ASmallBurstIsEnoughToBegin) {
  options.timeout_ms = 20000; // were more needed, sound would wait for that
  const auto begin = Clock::now();
  play(radio.url("/live/440.mp3?burst=1.1&mute=0.05"));
  ASSERT_TRUE(until_hears(440)) << told();
  EXPECT_LT(Clock::now() - begin, 15s);
}

TEST_F(Engine, TakesTheLastOfManyStations) {
  for (int i = 0; i < 100; ++i)
    play(radio.url("/live/440.mp3?turn=" + std::to_string(i)));
  play(radio.url("/live/880.mp3"));
  ASSERT_TRUE(until_hears(880)) << told();
  EXPECT_LT(radio.hits("/live/440.mp3"), 20);
  EXPECT_EQ(radio.hits("/live/880.mp3"), 1);
}

TEST_F(Engine, FollowsARedirection) {
  play(radio.url("/to?url=/live/440.mp3"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Engine, SurvivesARedirectionToItself) {
  play(radio.url("/loop"));
  ASSERT_TRUE(until_said("retry in ")) << told();
  play(radio.url("/live/440.mp3"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Engine, UnderstandsTheOldAnswer) {
  play(radio.url("/live/440.mp3?icy=1"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Engine, KnowsNoiseAndPagesAsNoSound) {
  play(radio.url("/garbage"));
  EXPECT_TRUE(until_said("unknown format")) << told();
  texts.clear();
  play(radio.url("/text?type=audio/mpeg&body=%3chtml%3e%3cbody%3eSorry%3c/body%3e"));
  EXPECT_TRUE(until_said("unknown format")) << told();
  EXPECT_EQ(device->loud_blocks(), 0U);
}

TEST_F(Engine, SleepsAndWakesWithTheMachine) {
  play(radio.url("/live/440.mp3?then=880.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  player().system_suspended();
  ASSERT_TRUE(until([this] { return device->silent(); })) << told();
  EXPECT_EQ(states.back(), 11);
  player().system_resumed();
  EXPECT_TRUE(until_hears(880)) << told();
  player().stop();
  player().system_suspended();
  player().system_resumed();
  EXPECT_EQ(status(), "stopped");
  device->forget();
  play(radio.url("/live/880.mp3"));
  EXPECT_TRUE(until_hears(880)) << told();
  EXPECT_EQ(radio.hits("/live/440.mp3"), 2) << "what is stopped does not wake";
}

TEST_F(Engine, CountsTheTimeThatWasHeard) {
  EXPECT_EQ(player().played_ms(), 0U);
  play(radio.url("/live/440.mp3?burst=0.5&mute=0.5&then=880.mp3"));
  EXPECT_EQ(player().played_ms(), 0U);
  ASSERT_TRUE(until_hears(880)) << told(); // after an outage of the two seconds it takes to notice it
  const auto first = player().played_ms();
  EXPECT_GT(first, 1000U);
  EXPECT_LT(first, 1900U); // about one second of the first tone, a little of the second
  const std::uint64_t blocks = device->blocks();
  ASSERT_TRUE(until([&, this] { return device->blocks() >= blocks + 50; }));
  const auto played = static_cast<double>(TestDevice::block_ms) * static_cast<double>(device->blocks() - blocks);
  EXPECT_NEAR(static_cast<double>(player().played_ms() - first), played, 100);
}

TEST_F(Engine, PlaysOnAnyRateOfTheDevice) {
  for (const int rate : {44100, 96000, 192000}) {
    device->rate = rate;
    device->forget();
    make();
    play(radio.url("/live/440.mp3"));
    EXPECT_TRUE(until_hears(440)) << rate << told();
  }
}

TEST_F(Engine, WaitsForASoundDevice) {
  device->present = false;
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until([this] { return status() == "playing: no device"; })) << told();
  device->present = true;
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_TRUE(until([this] { return says("playing MP3"); })) << told();
}

TEST_F(Engine, TakesASoundDeviceThatComesWithinTwoSeconds) {
  device->present = false;
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until([this] { return status() == "playing: no device"; })) << told();
  const auto since = std::chrono::steady_clock::now();
  device->present = true;
  ASSERT_TRUE(until([this] { return device->opened > 0; })) << told();
  EXPECT_LT(std::chrono::steady_clock::now() - since, std::chrono::milliseconds(1700));
}

TEST_F(Engine, TakesTheNextSoundDeviceWhenOneDies) {
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until_hears(440)) << told();
  const std::uint64_t blocks = device->blocks();
  device->broken = true;
  ASSERT_TRUE(until([this] { return device->opened == 2; })) << told();
  device->forget();
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_GT(device->blocks(), blocks);
}

TEST_F(Engine, ObeysTheVolume) {
  player().set_volume(0);
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until([this] { return player().played_ms() > 300; })) << told();
  EXPECT_EQ(device->loud_blocks(), 0U);
  player().set_volume(100);
  EXPECT_TRUE(until_hears(440));
  player().set_volume(1000);
  EXPECT_EQ(player().volume(), 100);
  player().set_volume(-1);
  EXPECT_EQ(player().volume(), 0);
}

// Handlers that do what handlers do.
TEST_F(Engine, MayBeCalledFromItsNotifications) {
  play(radio.url("/nothing"));
  player().on_status_change = [this] {
    if (says("not found"))
      play(radio.url("/live/440.mp3"));
  };
  EXPECT_TRUE(until_hears(440));
}

} // namespace
} // namespace lumotune::media::rig
