// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::StreamPhase;
using platform::StreamStatus;
using platform::StreamTrouble;

struct Title final : player::TitlePort {
  void show_title(const std::wstring& title) override { shown.push_back(title); }
  std::vector<std::wstring> shown;
};

struct StatusDisplayTest : testing::Test {
  PlayerWorld w;
  Title title;
  StatusDisplayTest() {
    w.status.title.bind(title);
    StreamStatus& playing = w.player.reported.emplace();
    playing.phase = StreamPhase::playing;
    playing.codec = L"MP3";
    playing.kbps = 128;
    playing.hertz = 44100;
    playing.title = L"Umělec - Píseň";
    w.session.skin.status_has_first_layout = true;
    w.session.skin.status_top_1 = 100;
    w.session.skin.status_height_1 = 200;
    w.session.skin.status_top_2 = 300;
    w.session.skin.status_height_2 = 400;
  }
};

TEST_F(StatusDisplayTest, TheFirstLayoutShowsTheTextFromColumn55) {
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  EXPECT_EQ(w.form.InfoStatus.rect().top, 100);
  EXPECT_EQ(w.form.InfoStatus.rect().height, 200);
}

TEST_F(StatusDisplayTest, WithATimeTheSecondLayoutShowsItFromColumn33) {
  w.player.played = 5000;
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  EXPECT_EQ(w.form.InfoStatus.rect().top, 300);
  EXPECT_EQ(w.form.InfoStatus.rect().height, 400);
  EXPECT_EQ(w.form.InfoTime.text(), L"0:05");
}

TEST_F(StatusDisplayTest, AnotherModeAlwaysTakesTheSecondLayout) {
  w.session.skin.status_has_first_layout = false;
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.rect().top, 300);
  w.player.reported->title.clear();
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Přehrávání · MP3 128 kbps 44,1 kHz");
}

// The layouts differ in height alone: where the label begins, and how wide it is, is the skin's for both.
TEST_F(StatusDisplayTest, BothLayoutsKeepTheLabelsLeftEdgeAndWidth) {
  w.form.InfoStatus.move(33, 7);
  w.form.InfoStatus.resize(444, 5);
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.rect(), (platform::TwipsRect{33, 100, 444, 200}));
  w.player.played = 5000;
  w.status.tick();
  EXPECT_EQ(w.form.InfoStatus.rect(), (platform::TwipsRect{33, 300, 444, 400}));
}

TEST_F(StatusDisplayTest, WhatIsNotPlayingBeginsAtTheSamePlaceInBothLayoutsAndInNotifications) {
  struct Row {
    StreamPhase phase;
    int retry_seconds;
    std::wstring state;
  };
  for (const auto& [phase, retry_seconds, state] :
       {Row{StreamPhase::waiting, 10, L"Stanice neodpovídá, další pokus za 10 s"},
        Row{StreamPhase::waiting, 9, L"Stanice neodpovídá, další pokus za 9 s"},
        Row{StreamPhase::stopped, 0, L"Zastaveno"}, Row{StreamPhase::connecting, 0, L"Připojování..."}}) {
    StreamStatus& status = w.player.reported.emplace();
    status.phase = phase;
    status.trouble = phase == StreamPhase::waiting ? StreamTrouble::not_answering : StreamTrouble::none;
    status.retry_seconds = retry_seconds;
    for (const std::uint64_t played : {0U, 5000U}) {
      w.player.played = played;
      w.status.tick();
      EXPECT_EQ(w.form.InfoStatus.text(), state) << played;
      w.status.StatusChange();
      EXPECT_EQ(w.form.InfoStatus.text(), state) << "it does not jump between the two";
    }
  }
}

TEST_F(StatusDisplayTest, ATitleDoesNotJumpBetweenANotificationAndEitherLayout) {
  for (const std::uint64_t played : {0U, 5000U}) {
    w.player.played = played;
    w.status.PlayStateChange(3);
    const std::wstring notified = w.form.InfoStatus.text();
    w.status.tick();
    EXPECT_EQ(w.form.InfoStatus.text(), notified) << played;
  }
}

TEST_F(StatusDisplayTest, TheNeedleComesAlongTheScaleWithWhatIsLoaded) {
  w.session.playing = true;
  w.status.tick();
  EXPECT_FALSE(w.form.LTDisplay.needle()) << "a skin without a scale";
  w.session.skin.needle = {.top = 10, .height = 20, .from = 1000, .to = 3000, .colour = 0xff};
  const auto place = [&] { return w.form.LTDisplay.needle().value_or(platform::Needle{}).middle; };
  w.player.reported->phase = StreamPhase::connecting;
  w.status.StatusChange();
  EXPECT_EQ(place(), 1000);
  w.player.reported->phase = StreamPhase::buffering;
  for (const auto& [percent, there] : {std::pair(0, 1000), std::pair(40, 1800), std::pair(100, 3000)}) {
    w.player.reported->percent = percent;
    w.status.StatusChange();
    EXPECT_EQ(place(), there) << percent;
  }
  w.player.reported->phase = StreamPhase::playing;
  w.status.tick();
  EXPECT_EQ(w.form.LTDisplay.needle(), (platform::Needle{3000, 10, 20, platform::Colour{0xff}}));
  w.session.playing = false;
  w.status.tick();
  EXPECT_FALSE(w.form.LTDisplay.needle()) << "nothing is on";
}

TEST_F(StatusDisplayTest, TheTunedFavouriteIsMarked) {
  w.settings.KvalitaLT = L"2";
  w.settings.IDlastRadio = L"LUMO01";
  w.status.tick();
  EXPECT_EQ(w.form.Control_List.mark(), L"2LUMO01");
  w.settings.IDlastRadio.clear();
  w.status.tick();
  EXPECT_EQ(w.form.Control_List.mark(), L"");
}

TEST_F(StatusDisplayTest, NamesOfFifteenCharactersGetDots) {
  w.session.station_name = L"čtrnáct znaků.";
  w.status.tick();
  EXPECT_EQ(w.form.InfoName.text(), L"čtrnáct znaků.");
  w.session.station_name = L"patnáct znaků..";
  w.status.tick();
  EXPECT_EQ(w.form.InfoName.text(), L"patnáct znaků.....");
  w.session.station_name = L"mnohem více než patnáct znaků";
  w.status.tick();
  EXPECT_EQ(w.form.InfoName.text(), L"mnohem více než...");
  EXPECT_EQ(w.form.InfoName.tooltip(), L"mnohem více než patnáct znaků");
}

TEST_F(StatusDisplayTest, TheTitleIsTheStationThenTheOverrideThenTheProgram) {
  w.status.tick();
  w.session.OverrideName = L"Z klienta";
  w.status.tick();
  EXPECT_EQ(w.form.InfoName.text(), L"Z klienta");
  w.session.station_name = L"První";
  w.status.tick();
  EXPECT_EQ(title.shown, (std::vector<std::wstring>{L"Lumotune", L"Z klienta - Lumotune", L"První - Lumotune"}));
  EXPECT_EQ(w.window.caption(), L"Lumotune") << "the title never becomes the caption";
}

TEST_F(StatusDisplayTest, TicksEverySecondOnceStarted) {
  w.status.start();
  w.loop.advance(999);
  EXPECT_TRUE(title.shown.empty());
  w.loop.advance(2001);
  EXPECT_EQ(title.shown.size(), 3U);
}

TEST_F(StatusDisplayTest, NotificationsCopyTheFullStatus) {
  w.session.station_name = L"Nová";
  w.status.PlayStateChange(3);
  EXPECT_EQ(w.form.InfoName.text(), L"Nová") << "a change of station is seen at once";
  EXPECT_EQ(w.form.InfoStatus.text(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  w.player.reported.reset();
  w.status.StatusChange();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Zastaveno");
}

TEST_F(StatusDisplayTest, AChangeThatTheWordsDoNotShowKeepsTheColumns) {
  w.player.played = 5000;
  w.status.StatusChange();
  w.status.tick();
  w.player.reported->unverified = true; // which the tool tip tells
  w.status.StatusChange();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
}

TEST_F(StatusDisplayTest, TheToolTipWarnsForAsLongAsItPlays) {
  w.player.reported->phase = StreamPhase::buffering;
  w.player.reported->unverified = true;
  w.player.reported->kbps = 0;
  w.status.PlayStateChange(6);
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Neověřený server");
  w.player.reported->phase = StreamPhase::playing;
  w.status.StatusChange();
  EXPECT_EQ(w.form.InfoStatus.text(), L"Umělec - Píseň · MP3 44,1 kHz");
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Umělec - Píseň · MP3 44,1 kHz - Neověřený server");
  w.status.tick(); // which shows the columns
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Umělec - Píseň · MP3 44,1 kHz - Neověřený server");
  w.player.reported.reset();
  w.status.StatusChange();
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Zastaveno");
}

TEST(ElapsedText, CountsHoursOnlyWhenThereAreAny) {
  EXPECT_EQ(player::elapsed_text(0), L"");
  EXPECT_EQ(player::elapsed_text(1), L"0:00");
  EXPECT_EQ(player::elapsed_text(65000), L"1:05");
  EXPECT_EQ(player::elapsed_text(3599999), L"59:59");
  EXPECT_EQ(player::elapsed_text(3753000), L"1:02:33");
}

TEST_F(StatusDisplayTest, ANoticeStandsForFiveSecondsAndIsSaid) {
  auto& line = *w.window.label(L"InfoStatus");
  w.status.StatusChange();
  w.status.tell(L"Novinka");
  EXPECT_EQ(line.announced, std::vector<std::wstring>{L"Novinka"});
  for (int second = 0; second < 5; ++second) {
    EXPECT_EQ(line.text(), L"Novinka") << second;
    w.status.StatusChange();
    w.status.PlayStateChange(1);
    EXPECT_EQ(line.text(), L"Novinka") << second;
    w.status.tick();
  }
  EXPECT_EQ(line.text(), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  w.player.reported.reset();
  w.status.StatusChange();
  EXPECT_EQ(line.text(), L"Zastaveno");
}

} // namespace
} // namespace lumotune::test
