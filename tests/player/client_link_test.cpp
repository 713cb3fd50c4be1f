// SPDX-License-Identifier: LGPL-2.1-or-later
// The play report, and asking for listeners.
#include "tests/player/client_link_world.h"

namespace lumotune::test {
namespace {

struct ClientLinkTest : ClientLinkWorld {};

TEST_F(ClientLinkTest, ReportsOnceThreeSecondsAfterPlayingBegan) {
  w.loop.advance(10000);
  EXPECT_TRUE(w.journal.empty()) << "off until something plays";
  link.enable_Timer1();
  w.loop.advance(2999);
  EXPECT_TRUE(w.journal.empty());
  w.loop.advance(1);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"}));
  w.loop.advance(60000);
  EXPECT_EQ(w.journal.size(), 2U);
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(w.journal.size(), 4U) << "every start of playing reports";
}

TEST_F(ClientLinkTest, PlayingArmsItAndStoppingDoesNotDisarmIt) {
  w.playback.Play();
  w.playback.PlayStop();
  w.journal.clear();
  w.loop.advance(3000);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"}));
}

TEST_F(ClientLinkTest, TheReportCarriesTheStationOfItsMoment) {
  link.enable_Timer1();
  w.loop.advance(2000);
  link.enable_Timer1();
  w.settings.IDlastRadio = L"RADIO2";
  w.loop.advance(1000);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO2"})) << "at the first due time";
  w.loop.advance(5000);
  EXPECT_EQ(w.journal.size(), 2U);
}

TEST_F(ClientLinkTest, ReadsWhatTheClientWroteLast) {
  w.settings.KvalitaLT = L"5";
  w.settings.LTvolume = L"77";
  auto lines = option_lines();
  lines[5] = "#005:AAAAA:nove";
  lines[6] = "#006:BBBBBBB:heslo";
  w.put(L"Orb_Data\\options.ini", joined(lines));
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(programs.idh, L"nove");
  EXPECT_EQ(programs.h, L"heslo");
  EXPECT_EQ(programs.server, L"http://server.example");
  EXPECT_EQ(w.settings.client_link, L"on");
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1") << "the values of this run are newer than the file's";
  EXPECT_EQ(w.settings.KvalitaLT, L"5");
  EXPECT_EQ(w.settings.LTvolume, L"77");
}

TEST_F(ClientLinkTest, AShortFileGivesTheSwitchAndWhatItLacksKeepsItsValue) {
  for (std::size_t count = 19; count < 24; ++count) {
    auto lines = option_lines();
    lines[5] = "#005:AAAAA:nove";
    lines[18] = "#018:DDD:off";
    lines.resize(count);
    w.settings.client_link = L"on";
    w.put(L"Orb_Data\\options.ini", joined(lines));
    w.journal.clear();
    link.enable_Timer1();
    w.loop.advance(3000);
    EXPECT_EQ(w.journal, (Journal{L"off RADIO1"})) << count;
    EXPECT_EQ(programs.idh, L"nove");
  }
  auto lines = option_lines();
  lines[5] = "#005:AAAAA:jeste novejsi";
  lines[6] = "#006:BBBBBBB:jine";
  w.settings.h = L"heslo";
  for (const std::size_t count : {18U, 6U, 5U}) {
    lines.resize(count);
    w.put(L"Orb_Data\\options.ini", joined(lines));
    w.journal.clear();
    link.enable_Timer1();
    w.loop.advance(3000);
    EXPECT_EQ(w.journal, (Journal{L"off RADIO1"})) << "the switch is not there: " << count;
    EXPECT_EQ(programs.idh, L"jeste novejsi");
    EXPECT_EQ(programs.h, L"jine");
  }
}

TEST_F(ClientLinkTest, AShortFileThatTheClientIsWritingGivesNothing) {
  auto lines = option_lines();
  lines[18] = "#018:DDD:o";
  lines.resize(19);
  w.settings.client_link = L"off";
  w.put(L"Orb_Data\\options.ini", joined(lines));
  w.files.set_being_written(w.path(L"Orb_Data\\options.ini"), true);
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(w.journal, (Journal{L"off RADIO1"}));
}

TEST_F(ClientLinkTest, AnEmptyLoginLineMeanwhileChangesNothing) {
  w.settings.idh = L"stare";
  w.settings.h = L"heslo";
  w.settings.client_link = L"off";
  auto lines = option_lines();
  lines[5] = "#005:AAAAA:";
  lines[6] = "#006:BBBBBBB:";
  w.put(L"Orb_Data\\options.ini", joined(lines));
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(programs.idh, L"stare");
  EXPECT_EQ(programs.h, L"heslo");
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"})) << "the switch is read all the same";
}

TEST_F(ClientLinkTest, WithoutSettingsTheValuesStayAndTheReportGoes) {
  w.settings.idh = L"stare";
  w.settings.client_link = L"off";
  for (const bool missing : {true, false}) {
    if (missing)
      (void)w.files.remove(w.path(L"Orb_Data\\options.ini"));
    else
      w.put(L"Orb_Data\\options.ini", "jeden\r\ndva\r\n");
    w.journal.clear();
    link.enable_Timer1();
    w.loop.advance(3000);
    EXPECT_EQ(w.journal, (Journal{L"off RADIO1"}));
    EXPECT_EQ(programs.idh, L"stare");
  }
}

TEST_F(ClientLinkTest, WithoutAServerFileTheReportGoesAllTheSame) {
  (void)w.files.remove(w.path(L"Orb_Data\\orb_server.tt"));
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"}));
  EXPECT_EQ(programs.server, L"");
}

TEST_F(ClientLinkTest, PendingEventsRunBetweenReadingAndStarting) {
  link.enable_Timer1();
  w.loop.at(3000, [&] { w.settings.IDlastRadio = L"POZDEJ"; });
  w.loop.advance(3000);
  EXPECT_EQ(w.journal.back(), L"on POZDEJ");
}

TEST_F(ClientLinkTest, AnyOtherSwitchIsOn) {
  for (const char* value : {"on", "", "offf", "vypnuto"}) {
    w.set_option(18, std::string("#018:DDD:") + value);
    w.journal.clear();
    link.enable_Timer1();
    w.loop.advance(3000);
    EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"})) << value;
  }
}

TEST_F(ClientLinkTest, SwitchedOffTheClientIsNotStartedAndAnOldReplyGoesFirst) {
  switch_off();
  w.put(L"orblt.tt", "inf:stara\r\n");
  link.enable_Timer1();
  w.loop.advance(3000);
  EXPECT_EQ(w.journal, (Journal{L"off RADIO1"}));
  EXPECT_FALSE(programs.reply_there);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(ClientLinkTest, NoReportWhenTheProgramEnds) {
  link.enable_Timer1();
  w.loop.at(3000, [&] { w.loop.quit(); });
  w.loop.advance(3000);
  EXPECT_TRUE(w.journal.empty());
}

TEST_F(ClientLinkTest, NothingIsReportedOrAskedWhileTheLastSaveWaits) {
  report_off();
  link.enable_Timer1();
  w.loop.advance(2900);
  w.put(L"orblt.tt", "inf:a\r\n");
  w.files.set_being_written(w.path(L"Orb_Data\\options.ini"), true);
  const auto begun = w.loop.tick_count_ms();
  w.shutdown.Konec();
  ASSERT_GE(w.loop.tick_count_ms() - begun, 600U) << "both timers were due";
  EXPECT_EQ(w.journal, (Journal{L"remove tray", L"OnTopNO"}));
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, AReportThatRunsWhenTheEndBeginsStartsNothing) {
  link.enable_Timer1();
  w.loop.at(3000, [&] { w.loop.begin_end(); });
  w.loop.advance(3000);
  EXPECT_TRUE(w.journal.empty());
}

TEST_F(ClientLinkTest, AsksTheClientToShowTheListeners) {
  link.Control_ShowUser_Click();
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].bytes, "lts:RADIO1");
  EXPECT_EQ(w.messages.sent[0].target, platform::WindowRef{77});
}

TEST_F(ClientLinkTest, AMissingClientIsStartedAtEveryMiss) {
  w.messages.remove_window(L"Orb - Lumotune");
  link.Control_ShowUser_Click();
  EXPECT_EQ(w.shell.started.size(), 9U);
  EXPECT_EQ(w.shell.started[0].command_line, L"orb.exe");
  EXPECT_TRUE(w.messages.sent.empty());
}

TEST_F(ClientLinkTest, ASecondWishMeanwhileIsDropped) {
  w.messages.remove_window(L"Orb - Lumotune");
  w.loop.at(700, [&] { link.Control_ShowUser_Click(); });
  link.Control_ShowUser_Click();
  EXPECT_EQ(w.shell.started.size(), 9U);
  w.messages.add_window(L"Orb - Lumotune", platform::WindowRef{8});
  link.Control_ShowUser_Click();
  EXPECT_EQ(w.messages.sent.size(), 1U) << "and the next one works again";
}

} // namespace
} // namespace lumotune::test
