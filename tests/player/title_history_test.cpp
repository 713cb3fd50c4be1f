// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/title_history.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct TitleHistoryTest : testing::Test {
  PlayerWorld w;
  player::TitleHistory history{{w.session, w.folder, w.machine, w.player, w.loop}};

  void play(const std::wstring& title, std::uint32_t ms = 12000) {
    platform::StreamStatus status;
    status.phase = platform::StreamPhase::playing;
    status.title = title;
    w.player.reported = status;
    w.session.shown_name = L"První";
    w.loop.advance(ms);
  }
  [[nodiscard]] std::string file() const { return w.get(L"skladby.txt"); }
};

TEST_F(TitleHistoryTest, EachNewTitleIsALineWithItsTimeAndStation) {
  history.start();
  play(L"Kometa");
  play(L"Kometa", 60000);
  play(L"Sarajevo");
  EXPECT_EQ(file(),
            "zapisovat:ano\r\n1. 2. 2024 3:04:05 | Prvn\xed | Kometa\r\n1. 2. 2024 3:04:05 | Prvn\xed | Sarajevo\r\n");
}

TEST_F(TitleHistoryTest, WithoutTitlesThereIsNoFile) {
  history.start();
  play(L"");
  w.player.reported.reset();
  w.loop.advance(60000);
  EXPECT_EQ(file(), "(none)");
}

TEST_F(TitleHistoryTest, WhatIsNotHeardIsNotRecorded) {
  history.start();
  platform::StreamStatus status;
  status.phase = platform::StreamPhase::waiting;
  status.title = L"Kometa";
  w.player.reported = status;
  w.loop.advance(60000);
  EXPECT_EQ(file(), "(none)");
}

TEST_F(TitleHistoryTest, TheListenersNoHoldsFromTheNextTitleOn) {
  history.start();
  play(L"Kometa");
  w.put(L"skladby.txt", "zapisovat:ne\r\n");
  play(L"Sarajevo");
  EXPECT_EQ(file(), "zapisovat:ne\r\n");
  EXPECT_EQ(w.session.last_titles, L"");
  w.put(L"skladby.txt", "zapisovat:ano\r\n");
  play(L"Mikymauz");
  EXPECT_EQ(file(), "zapisovat:ano\r\n1. 2. 2024 3:04:05 | Prvn\xed | Mikymauz\r\n")
      << "what was heard meanwhile is forgotten";
}

TEST_F(TitleHistoryTest, TheTipOfTheStatusShowsTheLastFive) {
  w.put(L"skladby.txt", "1 | a | 1\r\n1 | a | 2\r\n1 | a | 3\r\n1 | a | 4\r\n1 | a | 5\r\n");
  history.start();
  EXPECT_EQ(w.session.last_titles, L"\r\na | 5\r\na | 4\r\na | 3\r\na | 2\r\na | 1");
  play(L"Kometa");
  w.status.PlayStateChange(3);
  EXPECT_EQ(w.form.InfoStatus.tooltip(), L"Kometa\r\nPrvní | Kometa\r\na | 5\r\na | 4\r\na | 3\r\na | 2");
}

TEST_F(TitleHistoryTest, AFloodOfTitlesIsWrittenOnceInTenSeconds) {
  history.start();
  w.files.forget_changes();
  for (int i = 0; i < 600; ++i)
    play(std::to_wstring(i), 1000);
  EXPECT_LE(w.files.changes().size(), 62U);
  history.flush();
  const player::TitleLines kept(file(), w.codec);
  EXPECT_EQ(kept.last(1000, 100).size(), player::TitleLines::max_titles);
  EXPECT_EQ(kept.last(1, 100).front(), L"První | 599");
}

TEST_F(TitleHistoryTest, WhatWaitsIsWrittenAtTheEnd) {
  history.start();
  play(L"Kometa", 2000);
  play(L"Sarajevo", 2000);
  EXPECT_EQ(file().find("Sarajevo"), std::string::npos);
  history.flush();
  EXPECT_NE(file().find("Sarajevo"), std::string::npos);
}

TEST_F(TitleHistoryTest, TheEndOfTheProgramWritesIt) {
  w.title_history.start();
  play(L"Kometa", 2000);
  play(L"Sarajevo", 2000);
  w.shutdown.Konec();
  EXPECT_NE(file().find("Sarajevo"), std::string::npos);
}

TEST_F(TitleHistoryTest, AFileThatCannotBeReadIsLeftAlone) {
  const std::string huge(player::TitleHistory::max_bytes + 1, 'x');
  w.put(L"skladby.txt", huge);
  history.start();
  play(L"Kometa");
  EXPECT_TRUE(file() == huge);
}

TEST_F(TitleHistoryTest, AFileThatCannotBeWrittenIsTriedAgain) {
  history.start();
  w.put(L"skladby.txt", "zapisovat:ano\r\n");
  w.files.hold(w.path(L"skladby.txt"));
  play(L"Kometa", 30000);
  EXPECT_EQ(file(), "zapisovat:ano\r\n");
  EXPECT_NE(w.session.last_titles.find(L"Kometa"), std::wstring::npos) << "the tip knows it all the same";
  w.files.release(w.path(L"skladby.txt"));
  w.loop.advance(player::TitleHistory::after_failure_ms);
  EXPECT_NE(file().find("Kometa"), std::string::npos);
}

TEST_F(TitleHistoryTest, AHeldFileHoldsUpTheUserInterfaceOnceInFiveMinutes) {
  history.start();
  w.put(L"skladby.txt", "zapisovat:ano\r\n");
  w.files.hold(w.path(L"skladby.txt"));
  play(L"Kometa");
  const int one_attempt = w.files.waited_ms;
  EXPECT_GT(one_attempt, 0);
  play(L"Sarajevo", 240000);
  EXPECT_EQ(w.files.waited_ms, one_attempt);
  EXPECT_NE(w.session.last_titles.find(L"Sarajevo"), std::wstring::npos) << "the tip is up to date";
  w.loop.advance(player::TitleHistory::after_failure_ms);
  EXPECT_GT(w.files.waited_ms, one_attempt);
}

TEST_F(TitleHistoryTest, TheEndOfTheProgramTriesAHeldFileOnceMore) {
  history.start();
  w.put(L"skladby.txt", "zapisovat:ano\r\n");
  w.files.hold(w.path(L"skladby.txt"));
  play(L"Kometa");
  w.files.release(w.path(L"skladby.txt"));
  history.flush();
  EXPECT_NE(file().find("Kometa"), std::string::npos);
}

} // namespace
} // namespace lumotune::test
