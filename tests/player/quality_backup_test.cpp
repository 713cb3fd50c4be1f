// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/quality_backup.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::StreamPhase;
using platform::StreamTrouble;

struct QualityBackupTest : testing::Test {
  PlayerWorld w;
  player::QualityBackup backup{{w.settings, w.session, w.player, w.loop, w.stations, w.playback, w.status}};

  QualityBackupTest() {
    w.player.set_auto_start(false);
    w.form.InfoStatus.resize(3000, 300);
    w.put(L"radios.tt",
          "RADIO1/@/Prvn\xed/@/tip/@/x/@/Zeme/@/100001/@/u1/@/u2/@/u3/@/u4/@/u5/@/64/@/128/@/192/@//@//@/w/@/x\r\n");
    w.settings.IDlastRadio = L"RADIO1";
    w.settings.KvalitaLT = L"2";
    backup.start();
  }
  void play() {
    w.playback.AutoStart(L"RADIO1", w.settings.KvalitaLT);
    heard();
    w.loop.advance(3000);
  }
  void report(StreamPhase phase, StreamTrouble trouble) {
    platform::StreamStatus status;
    status.phase = phase;
    status.trouble = trouble;
    w.player.reported = status;
  }
  void heard() { report(StreamPhase::playing, StreamTrouble::none); }
  // For so long, with events.
  void gone_for(std::uint32_t ms) {
    report(StreamPhase::waiting, StreamTrouble::lost);
    w.loop.advance(ms);
  }
  [[nodiscard]] std::wstring playing() const { return w.player.playing() ? w.player.url() : L"(nothing)"; }
};

TEST_F(QualityBackupTest, AfterFifteenSecondsTheNearestQualityPlaysInItsPlace) {
  play();
  gone_for(14000);
  EXPECT_EQ(playing(), L"u2");
  gone_for(7000);
  EXPECT_EQ(playing(), L"u1");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::station);
  EXPECT_EQ(w.settings.KvalitaLT, L"2") << "what is saved is the choice";
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
}

TEST_F(QualityBackupTest, TheStatusSaysWhichPlays) {
  w.form.InfoStatus.set_visible(true);
  play();
  gone_for(20000);
  EXPECT_EQ(w.form.InfoStatus.text(), L"Zkouší se náhradní kvalita 64 kbps");
  heard();
  w.loop.advance(1500);
  EXPECT_EQ(w.form.InfoStatus.text(), L"Hraje náhradní kvalita 64 kbps");
  w.status.PlayStateChange(3);
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Přehrávání - náhradní kvalita 64 kbps");
  w.playback.PlayStop();
  w.status.PlayStateChange(1);
  EXPECT_EQ(w.form.InfoStatus.tooltip().find(L"náhradní"), std::wstring::npos);
}

TEST_F(QualityBackupTest, EachOtherOneIsTriedOnceAndThenTheChosenOneStays) {
  play();
  gone_for(20000);
  EXPECT_EQ(playing(), L"u1");
  gone_for(20000);
  EXPECT_EQ(playing(), L"u3");
  gone_for(20000);
  EXPECT_EQ(playing(), L"u2");
  EXPECT_EQ(w.session.backup_quality, L"");
  const std::size_t calls = w.player.calls.size();
  gone_for(600000);
  EXPECT_EQ(playing(), L"u2");
  EXPECT_EQ(w.player.calls.size(), calls) << "its own tries go on, and nothing else is asked";
}

TEST_F(QualityBackupTest, WhatHasWorkedAndGoesAgainBeginsAnewWithTheChosenOneAmongTheOthers) {
  play();
  gone_for(20000);
  ASSERT_EQ(playing(), L"u1");
  heard();
  w.loop.advance(70000);
  gone_for(20000);
  EXPECT_EQ(playing(), L"u3");
  gone_for(20000);
  EXPECT_EQ(playing(), L"u2");
}

TEST_F(QualityBackupTest, TheChosenOneReturnsAtTheNextPress) {
  play();
  gone_for(20000);
  w.form.PlayTL.press();
  EXPECT_EQ(playing(), L"(nothing)");
  EXPECT_EQ(w.player.url(), L"u2");
  w.form.PlayTL.press();
  EXPECT_EQ(playing(), L"u2");
  EXPECT_EQ(w.session.backup_quality, L"");
  gone_for(22000);
  EXPECT_EQ(playing(), L"u1") << "and the others stand in again";
}

TEST_F(QualityBackupTest, APressIsAFreshStartAfterAllWereTried) {
  play();
  gone_for(70000);
  ASSERT_EQ(playing(), L"u2");
  w.form.PlayTL.press();
  w.form.PlayTL.press(); // within a second
  gone_for(22000);
  EXPECT_EQ(playing(), L"u1");
}

TEST_F(QualityBackupTest, TheChosenOneSetAgainLetsTheBackupPlayAndPlayedReturns) {
  play();
  gone_for(20000);
  heard();
  w.playback.PripravHrani(L"u2");
  EXPECT_EQ(playing(), L"u1");
  w.playback.PlayAll(L"u2");
  EXPECT_EQ(playing(), L"u2");
}

TEST_F(QualityBackupTest, AnotherAddressEndsIt) {
  play();
  gone_for(20000);
  w.playback.PlayAll(L"http://jine");
  EXPECT_EQ(playing(), L"http://jine");
  EXPECT_FALSE(w.playback.plays_backup());
  gone_for(60000);
  EXPECT_EQ(playing(), L"http://jine") << "it has no other qualities";
}

TEST_F(QualityBackupTest, WhereThereIsOneQualityNothingIsTried) {
  w.put(L"radios.tt",
        "RADIO1/@/Prvn\xed/@/tip/@/x/@/Zeme/@/100001/@/u1/@/u2/@/u3/@/u4/@/u5/@//@/128/@//@//@//@/w/@/x\r\n");
  play();
  const std::size_t calls = w.player.calls.size();
  gone_for(60000);
  EXPECT_EQ(playing(), L"u2");
  EXPECT_EQ(w.player.calls.size(), calls);
}

TEST_F(QualityBackupTest, AStationThatAClientTunesMeanwhileIsNotMixedIn) {
  play();
  gone_for(20000);
  ASSERT_EQ(playing(), L"u1");
  heard();
  w.loop.advance(70000);
  w.settings.IDlastRadio = L"radio2";
  gone_for(60000);
  EXPECT_EQ(playing(), L"u1");
}

TEST_F(QualityBackupTest, NothingIsReportedAnew) {
  play();
  w.loop.advance(10000);
  const std::size_t started = w.shell.started.size();
  gone_for(30000);
  EXPECT_EQ(playing(), L"u1");
  EXPECT_EQ(w.shell.started.size(), started);
}

} // namespace
} // namespace lumotune::test
