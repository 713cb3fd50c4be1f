// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_player.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::AddressOrigin;

struct MediaPlayerContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::MediaPlayer> player = make_player(b.loop);
  const std::wstring nobody = L"http://127.0.0.1:1/rádio?a=1&b=2";
};

TEST_F(MediaPlayerContract, KeepsTheAddressAsItIs) {
  EXPECT_EQ(player->url(), L"");
  player->set_auto_start(false);
  player->set_url(nobody, AddressOrigin::listener);
  EXPECT_EQ(player->url(), nobody);
  player->stop();
  EXPECT_EQ(player->url(), nobody);
  player->set_url(L"", AddressOrigin::listener);
  EXPECT_EQ(player->url(), L"");
}

TEST_F(MediaPlayerContract, ANewAddressEndsWhatPlaysUntilItIsPlayed) {
  player->set_auto_start(false);
  player->set_url(nobody, AddressOrigin::station);
  EXPECT_EQ(player->status(), platform::StreamStatus());
  player->play();
  EXPECT_NE(player->status().phase, platform::StreamPhase::stopped) << "perhaps refused already";
  player->set_url(nobody + L"&c=3", AddressOrigin::station);
  EXPECT_FALSE(player->playing());
  EXPECT_EQ(player->status(), platform::StreamStatus());
  player->play();
  EXPECT_NE(player->status().phase, platform::StreamPhase::stopped) << "perhaps refused already";
}

TEST_F(MediaPlayerContract, TheAddressThatPlaysPlaysOnWhenItIsSetAgain) {
  player->set_auto_start(false);
  player->set_url(nobody, AddressOrigin::station);
  EXPECT_FALSE(player->playing());
  player->play();
  player->set_url(nobody, AddressOrigin::station);
  EXPECT_TRUE(player->playing());
  player->set_url(nobody, AddressOrigin::message);
  EXPECT_FALSE(player->playing()) << "what it may reach has changed";
  player->play();
  EXPECT_TRUE(player->playing());
  player->stop();
  EXPECT_FALSE(player->playing());
}

TEST_F(MediaPlayerContract, ClampsTheVolume) {
  for (const auto& [set, kept] : {std::pair(50, 50), std::pair(-1, 0), std::pair(101, 100), std::pair(0, 0)}) {
    player->set_volume(set);
    EXPECT_EQ(player->volume(), kept);
  }
}

TEST_F(MediaPlayerContract, TheVolumeOutlivesStreams) {
  player->set_volume(37);
  player->set_url(nobody, AddressOrigin::listener);
  player->play();
  player->stop();
  EXPECT_EQ(player->volume(), 37);
}

TEST_F(MediaPlayerContract, WhereNothingWasHeardNothingIsCounted) {
  EXPECT_EQ(player->played_ms(), 0U);
  player->set_url(nobody, AddressOrigin::listener);
  player->play();
  b.pass(50);
  EXPECT_EQ(player->played_ms(), 0U);
  player->stop();
  EXPECT_EQ(player->played_ms(), 0U);
}

TEST_F(MediaPlayerContract, WarnsOfNothingThatDoesNotPlay) {
  EXPECT_FALSE(player->status().unverified);
  player->set_url(nobody, AddressOrigin::station);
  player->play();
  b.pass(20);
  EXPECT_FALSE(player->status().unverified);
}

TEST_F(MediaPlayerContract, TellsNothingFromInsideACall) {
  bool inside = true;
  int told_inside = 0;
  player->on_play_state_change = [&](int) { told_inside += inside ? 1 : 0; };
  player->on_status_change = [&] { told_inside += inside ? 1 : 0; };
  player->set_url(nobody, AddressOrigin::listener);
  player->play();
  player->system_suspended();
  player->system_resumed();
  player->set_volume(10);
  player->stop();
  EXPECT_EQ(told_inside, 0);
  inside = false;
  b.loop.run_pending();
}

TEST_F(MediaPlayerContract, MayGoInTheMiddleOfATry) {
  player->set_url(nobody, AddressOrigin::listener);
  player->play();
  b.pass(20);
  player.reset();
  b.pass(20);
  EXPECT_FALSE(b.loop.quitting());
}

} // namespace
} // namespace lumotune::contract
