// SPDX-License-Identifier: LGPL-2.1-or-later
// The stream engine on this Windows, against the small radio that LUMOTUNE_SELFTEST_RADIO names: what it decodes is
// listened to, and the machine's own sound device is tried.
#include "platform/media/player.h"
#include "platform/win32/event_loop.h"
#include "tests/media/test_device.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

namespace lumotune::selftest {
namespace {

using platform::StreamPhase;
using platform::StreamStatus;

constexpr DWORD longest_ms = 30000;

std::wstring radio() {
  const char* const address = std::getenv("LUMOTUNE_SELFTEST_RADIO");
  const std::string text = address == nullptr ? "" : address;
  return {text.begin(), text.end()};
}

struct Station {
  const wchar_t* path;
  double hertz; // of its loudest tone
  const wchar_t* codec;
  int kbps; // as the engine tells it, 0: whatever it tells
};

class MediaSelftest : public testing::Test {
protected:
  void SetUp() override { ASSERT_FALSE(radio().empty()) << "no radio"; }

  void make(bool own_device) {
    media::PlayerOptions options;
    if (!own_device)
      options.make_output = device->factory();
    player = media::make_media_player(loop, options);
  }
  void play(const std::wstring& address) {
    device->forget();
    player->set_url(address, platform::AddressOrigin::station);
    player->play();
  }
  [[nodiscard]] bool until(const std::function<bool()>& fact) {
    const DWORD begun = GetTickCount();
    while (!fact() && GetTickCount() - begun < longest_ms) {
      if (!loop.wait_a_little())
        break;
    }
    return fact();
  }
  [[nodiscard]] bool until_hears(double hertz) {
    return until([&] { return device->has_heard(hertz); });
  }

  std::shared_ptr<media::rig::TestDevice> device = std::make_shared<media::rig::TestDevice>();
  platform::win32::EventLoop loop;
  std::unique_ptr<platform::MediaPlayer> player;
};

class EachStation : public MediaSelftest, public testing::WithParamInterface<Station> {};

TEST_P(EachStation, IsHeardAndTold) {
  const Station& station = GetParam();
  make(false);
  play(radio() + station.path);
  ASSERT_TRUE(until_hears(station.hertz));
  EXPECT_TRUE(until([&] { return player->status().phase == StreamPhase::playing; }))
      << "told a little later than heard";
  const StreamStatus status = player->status();
  EXPECT_EQ(status.codec, station.codec);
  if (station.kbps != 0) {
    EXPECT_EQ(status.kbps, station.kbps);
  }
  EXPECT_EQ(status.hertz, 44100);
  EXPECT_TRUE(until([&] { return player->played_ms() > 1000; }));
}

INSTANTIATE_TEST_SUITE_P(
    Sound, EachStation,
    testing::Values(Station{L"/lumo01-64.mp3", 440, L"MP3", 64}, Station{L"/lumo01-96.mp3", 440, L"MP3", 96},
                    Station{L"/lumo02-128.mp3", 523, L"MP3", 128}, Station{L"/lumo03-192.mp3", 587, L"MP3", 192},
                    Station{L"/lumo10-320.mp3", 494, L"MP3", 320}, Station{L"/lumo11-128.aac", 330, L"AAC", 0},
                    Station{L"/lumo09-96.ogg", 349, L"Vorbis", 0}));

TEST_F(MediaSelftest, TitlesArrive) {
  make(false);
  play(radio() + L"/lumo02-128.mp3");
  EXPECT_TRUE(until([&] { return player->status().title.find(L" - ") != std::wstring::npos; }));
}

TEST_F(MediaSelftest, AStopIsSilentAndAnotherStationIsHeard) {
  make(false);
  play(radio() + L"/lumo01-128.mp3");
  ASSERT_TRUE(until_hears(440));
  player->stop();
  EXPECT_TRUE(until([&] { return device->silent(); }));
  play(radio() + L"/lumo12-128.mp3");
  EXPECT_TRUE(until_hears(392));
}

TEST_F(MediaSelftest, AStationThatIsNotThereIsTold) {
  make(false);
  play(radio() + L"/nic.mp3");
  EXPECT_TRUE(until([&] { return player->status().trouble == platform::StreamTrouble::not_found; }));
  EXPECT_EQ(player->status().http_code, 404);
  play(L"http://127.0.0.1:1/");
  EXPECT_TRUE(until([&] { return player->status().trouble == platform::StreamTrouble::not_answering; }));
}

TEST_F(MediaSelftest, TheMachinesOwnDevicePlays) {
  make(true);
  constexpr int quiet = 20;
  player->set_volume(quiet);
  play(radio() + L"/lumo01-128.mp3");
  ASSERT_TRUE(until([&] { return player->status().phase == StreamPhase::playing; }));
  (void)until(
      [&] { return player->played_ms() > 3000 || player->status().trouble == platform::StreamTrouble::no_device; });
  if (player->status().trouble == platform::StreamTrouble::no_device)
    GTEST_SKIP() << "no sound device";
  EXPECT_GT(player->played_ms(), 3000U);
}

} // namespace
} // namespace lumotune::selftest
