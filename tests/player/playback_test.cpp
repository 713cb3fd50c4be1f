// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct PlaybackTest : testing::Test {
  PlayerWorld w;
  PlaybackTest() { w.player.set_auto_start(false); }
};

TEST_F(PlaybackTest, PreparesTheAddressAndEnablesTheButtons) {
  EXPECT_FALSE(w.form.PlayTL.enabled());
  EXPECT_FALSE(w.form.Control_Play.enabled());
  w.playback.PripravHrani(L"http://a");
  EXPECT_EQ(w.player.url(), L"http://a");
  EXPECT_TRUE(w.form.PlayTL.enabled());
  EXPECT_TRUE(w.form.Control_Play.enabled());
  EXPECT_TRUE(w.did(L"play picture"));
}

TEST_F(PlaybackTest, AnEmptyAddressTakesTheOneShotAddressWhichIsThenUsedUp) {
  w.session.OverrideURL = L"http://jednou";
  w.playback.PripravHrani(L"");
  EXPECT_EQ(w.player.url(), L"http://jednou");
  w.playback.PripravHrani(L"");
  EXPECT_EQ(w.player.url(), L"");
  w.session.OverrideURL = L"http://jednou";
  w.playback.PripravHrani(L"http://jina");
  EXPECT_EQ(w.player.url(), L"http://jina");
  EXPECT_EQ(w.session.OverrideURL, L"") << "used up in every case";
}

TEST_F(PlaybackTest, WhoSaysNothingElseGivesAStationsAddress) {
  using platform::AddressOrigin;
  const auto reset = [this] { w.player.set_url(L"", AddressOrigin::listener); };
  reset();
  w.playback.PripravHrani(L"\\\\host\\share\\x");
  EXPECT_EQ(w.player.origin(), AddressOrigin::station);
  reset();
  w.playback.PlayAll(L"C:\\x");
  EXPECT_EQ(w.player.origin(), AddressOrigin::station);
  reset();
  w.playback.AutoStart(L"RADIO1", L"1");
  EXPECT_EQ(w.player.origin(), AddressOrigin::station);
  for (const auto origin : {AddressOrigin::message, AddressOrigin::listener}) {
    w.playback.PripravHrani(L"C:\\x", origin);
    EXPECT_EQ(w.player.origin(), origin);
    w.session.OverrideURL = L"C:\\y";
    w.playback.PripravHrani(L"", origin);
    EXPECT_EQ(w.player.origin(), AddressOrigin::station) << "the pending address is a station's";
  }
}

TEST_F(PlaybackTest, PlayDoesItsStepsInOrder) {
  w.settings.IDlastRadio = L"RADIO1";
  for (auto* label : {&w.form.InfoName, &w.form.InfoTime, &w.form.InfoStatus})
    label->set_visible(false);
  w.playback.Play();
  EXPECT_EQ(w.player.calls.back(), L"play");
  EXPECT_EQ(w.journal, (Journal{L"ZobrazCoMas Stop"}));
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
  EXPECT_EQ(w.form.Control_Play.text(), L"Stop");
  EXPECT_EQ(w.form.Control_Play.tooltip(), L"Stop");
  EXPECT_TRUE(w.form.InfoTime.visible() && w.form.InfoName.visible() && w.form.InfoStatus.visible());
  EXPECT_FALSE(w.form.InfoNaladit.visible());
  EXPECT_EQ(w.session.station_name, L"První");
}

TEST_F(PlaybackTest, PlayStopReturnsToTheFavourites) {
  w.playback.Play();
  w.journal.clear();
  w.playback.PlayStop();
  EXPECT_EQ(w.player.calls.back(), L"stop");
  EXPECT_EQ(w.form.PlayTL.text(), L"Zapnout");
  EXPECT_EQ(w.journal, (Journal{L"ZobrazCoMas Zapnout", L"ZobrazOblibene"}));
}

TEST_F(PlaybackTest, AnotherAddressThatIsPreparedEndsWhatPlaysAndTheWindowSaysSo) {
  w.playback.PlayAll(L"http://a");
  w.journal.clear();
  w.playback.PripravHrani(L"http://b");
  EXPECT_FALSE(w.player.playing());
  EXPECT_EQ(w.form.PlayTL.text(), L"Zapnout");
  EXPECT_EQ(w.form.Control_Play.text(), L"Zapnout");
  EXPECT_EQ(w.journal, (Journal{L"play picture", L"ZobrazCoMas Zapnout", L"list in its place"}))
      << "nothing is read anew";
  w.journal.clear();
  w.playback.PlayTL_Click();
  EXPECT_TRUE(w.player.playing()) << "one press plays it";
  EXPECT_EQ(w.player.url(), L"http://b");
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
}

TEST_F(PlaybackTest, TheAddressThatPlaysPlaysOnWhenItIsPreparedAgain) {
  w.playback.PlayAll(L"http://a");
  w.journal.clear();
  w.playback.PripravHrani(L"http://a");
  EXPECT_TRUE(w.player.playing());
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
  EXPECT_EQ(w.journal, Journal{}) << "the picture goes on offering to stop";
}

TEST_F(PlaybackTest, WhatIsPlayedAtOnceNeverLooksStopped) {
  w.playback.PlayAll(L"http://a");
  w.journal.clear();
  w.playback.PlayAll(L"http://b");
  w.playback.AutoStart(L"RADIO1", L"1");
  EXPECT_FALSE(w.did(L"ZobrazCoMas Zapnout"));
  EXPECT_TRUE(w.player.playing());
}

TEST_F(PlaybackTest, EveryPlayArmsTheReport) {
  for (int plays = 1; plays <= 2; ++plays) {
    w.shell.started.clear();
    w.playback.Play();
    w.loop.advance(3000);
    EXPECT_EQ(w.shell.started.size(), 2U) << "the client and the report";
  }
}

TEST_F(PlaybackTest, TheCaptionTellsTheStateWhateverItsLetterCase) {
  w.form.PlayTL.set_text(L"zAPNOUT");
  w.playback.PlayTL_Click();
  EXPECT_TRUE(w.called(L"play"));
  w.form.PlayTL.set_text(L"cokoliv");
  w.playback.PlayTL_Click();
  EXPECT_TRUE(w.called(L"stop"));
}

TEST_F(PlaybackTest, ThePicturePressesTheButtonOnlyWhenItIsEnabled) {
  w.playback.Control_Play_Click();
  EXPECT_FALSE(w.called(L"play"));
  w.form.PlayTL.set_enabled(true);
  w.playback.Control_Play_Click();
  EXPECT_TRUE(w.called(L"play"));
}

TEST_F(PlaybackTest, AutoStartPlaysTheStoredQuality) {
  w.playback.AutoStart(L"RADIO1", L"2");
  EXPECT_EQ(w.player.url(), L"u2a");
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  EXPECT_EQ(w.player.calls.back(), L"play");
}

TEST_F(PlaybackTest, AutoStartWithoutAQualityPlaysTheFirst) {
  w.playback.AutoStart(L"RADIO1", L"");
  EXPECT_EQ(w.player.url(), L"u1a");
  EXPECT_EQ(w.settings.KvalitaLT, L"1");
}

TEST_F(PlaybackTest, AutoStartWithAnEmptyQualityFieldPlaysNothing) {
  w.put(L"radios.tt", "RADIO1/@/X/@//@//@//@//@/u1/@/u2/@//@//@//@/1/@/2/@//@//@//@/\r\n");
  w.playback.AutoStart(L"RADIO1", L"3");
  EXPECT_EQ(w.player.url(), L"");
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
}

TEST_F(PlaybackTest, AutoStartMayBeGivenTheSharedValuesThemselves) {
  w.settings.IDlastRadio = L"RADIO1";
  w.settings.KvalitaLT = L"2";
  w.playback.AutoStart(w.settings.IDlastRadio, w.settings.KvalitaLT);
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(w.player.url(), L"u2a");
}

TEST_F(PlaybackTest, VolumeIsClampedStoredAndShown) {
  w.playback.VolumeSet(85);
  EXPECT_EQ(w.player.volume(), 85);
  EXPECT_EQ(w.settings.LTvolume, L"85");
  EXPECT_TRUE(w.did(L"SkinVolume 85"));
  w.playback.VolumeSet(-5);
  EXPECT_EQ(w.settings.LTvolume, L"0");
  w.playback.VolumeSet(999);
  EXPECT_EQ(w.settings.LTvolume, L"100");
}

} // namespace
} // namespace lumotune::test
