// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/client_link.h"

#include "tests/support/player_world.h"

#include <gtest/gtest.h>

#include <functional>

namespace lumotune::test {
namespace {

// What a report starts, read from the command lines, and the reply file of that moment.
struct StartedPrograms {
  explicit StartedPrograms(PlayerWorld& world) : w(world) {
    w.shell.on_start = [this](const auto& started) { note(started.command_line); };
  }
  void note(const std::wstring& line) {
    const auto part = [&](const std::wstring& from, const std::wstring& to) {
      const std::size_t at = line.find(from) + from.size();
      return line.substr(at, line.find(to, at) - at);
    };
    if (!line.starts_with(L"load.exe "))
      return w.journal.emplace_back(L"client"), void();
    w.journal.push_back(part(L"orbw=", L"&") + L" " + part(L"stanice=", L"/@/"));
    server = part(L"load.exe ", L"/orb/");
    idh = part(L"idh=", L"&");
    h = part(L"&h=", L"&");
    reply_there = w.files.exists(w.path(L"orblt.tt"));
    if (during)
      during();
  }
  PlayerWorld& w;
  std::function<void()> during;
  std::wstring server;
  std::wstring idh;
  std::wstring h;
  bool reply_there = false;
};

struct ClientLinkTest : testing::Test {
  PlayerWorld w;
  player::ClientLink& link = w.client_link;
  StartedPrograms programs{w};

  ClientLinkTest() { w.settings.IDlastRadio = L"RADIO1"; }
  void switch_off() { w.set_option(18, "#018:DDD:OFF"); }
  // After this the reply file is looked for.
  void report_off() {
    switch_off();
    link.enable_Timer1();
    w.loop.advance(3000);
    w.journal.clear();
    w.shell.started.clear();
  }
  void reply(const std::string& bytes) {
    w.put(L"orblt.tt", bytes);
    w.loop.advance(500);
  }
  // The reply is there, and both timers are due when the loop comes to them.
  void late_reports() {
    w.loop.advance(10);
    link.enable_Timer1();
    w.loop.at(2985, [&] {
      w.put(L"orblt.tt", "inf:a\r\n");
      w.loop.set_wait_step(20);
      (void)w.loop.wait_a_little();
    });
    w.loop.advance(2985);
  }
  [[nodiscard]] bool reply_there() const { return w.files.exists(w.path(L"orblt.tt")); }
};

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

TEST_F(ClientLinkTest, WithTheLinkOnNoReplyIsReadNorRemoved) {
  link.enable_Timer1();
  w.loop.advance(3000);
  reply("inf:zprava\r\n");
  w.loop.advance(5000);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, OnceTheLinkIsOnTheReplyToAnEarlierReportIsNotLookedFor) {
  report_off();
  w.set_option(18, "#018:DDD:on");
  link.enable_Timer1();
  w.loop.advance(3000);
  reply("inf:zprava\r\n");
  w.loop.advance(5000);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, AReplyAsksAndIsRemoved) {
  report_off();
  w.loop.advance(7000); // it keeps looking
  w.dialogs.while_open = [&] { EXPECT_TRUE(reply_there()) << "removed at the end"; };
  reply("new:Máte 3 nové zprávy\r\nxyz:nic\r\ninf:Od: Petr\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].title, L"Nepřečtené zprávy na Orb");
  EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_EQ(w.dialogs.shown[0].buttons, platform::BoxButtons::yes_no);
  EXPECT_FALSE(reply_there());
  EXPECT_TRUE(w.messages.sent.empty()) << "no was answered";
}

TEST_F(ClientLinkTest, AReplyThatIsTooLongIsRemovedUnread) {
  const std::string question = "inf:Od: Petr\r\n";
  const std::size_t longest = player::ClientLink::max_reply_bytes;
  report_off();
  reply(question + std::string(longest - question.size(), '\n'));
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_FALSE(reply_there());
  report_off();
  reply(question + std::string(longest - question.size() + 1, '\n'));
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkTest, TheQuestionHasTheNewMessagesFirst) {
  report_off();
  reply("inf:prvn\xed\r\nnew:3\r\nINF:druh\xe1\r\nNew:4\r\ninf:\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 3U) << "each line asks once";
  EXPECT_EQ(w.dialogs.shown[0].text, L"\r\nprvní\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_EQ(w.dialogs.shown[1].text, L"3\r\ndruhá\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_EQ(w.dialogs.shown[2].text, L"4\r\n\r\n\r\nChcete zapnout Orb klienta?");
}

TEST_F(ClientLinkTest, PendingEventsRunBeforeTheReplyIsReadAndBeforeItGoes) {
  report_off();
  w.loop.at(500, [&] { w.put(L"orblt.tt", "inf:novější\r\n"); });
  bool there = false;
  w.dialogs.while_open = [&] { w.loop.at(0, [&] { there = reply_there(); }); };
  reply("inf:a\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_NE(w.dialogs.shown[0].text.substr(0, 3), L"\r\na");
  EXPECT_TRUE(there);
}

TEST_F(ClientLinkTest, PendingEventsRunAfterAnOldReplyWent) {
  for (const bool on : {true, false}) {
    w.set_option(18, on ? "#018:DDD:on" : "#018:DDD:off");
    link.enable_Timer1();
    const auto before = w.loop.pending_runs();
    w.loop.advance(3000);
    EXPECT_EQ(w.loop.pending_runs() - before, on ? 1U : 2U);
  }
}

TEST_F(ClientLinkTest, EachReplyBeginsWithoutNewMessages) {
  report_off();
  reply("new:3\r\ninf:a\r\n");
  report_off();
  reply("inf:b\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 2U);
  EXPECT_EQ(w.dialogs.shown[1].text.substr(0, 3), L"\r\nb");
}

TEST_F(ClientLinkTest, YesAsksTheClientToShowItself) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  reply("inf:a\r\n");
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].bytes, "lt:RADIO1");
  EXPECT_EQ(w.messages.sent[0].target, platform::WindowRef{77});
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(ClientLinkTest, YesStartsAMissingClientOnce) {
  report_off();
  w.messages.remove_window(L"Orb - Lumotune");
  w.dialogs.answers = {platform::BoxAnswer::yes};
  reply("inf:a\r\n");
  ASSERT_EQ(w.shell.started.size(), 1U);
  EXPECT_EQ(w.shell.started[0].command_line, L"orb.exe");
}

TEST_F(ClientLinkTest, OneReplyIsReadOnce) {
  report_off();
  reply("inf:a\r\n");
  reply("inf:b\r\n");
  w.loop.advance(5000);
  EXPECT_EQ(w.dialogs.shown.size(), 1U) << "until the next report nothing is looked for";
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, AReplyThatIsBeingWrittenIsNotThereYet) {
  report_off();
  w.files.set_being_written(w.path(L"orblt.tt"), true);
  reply("new:3\r\nin");
  w.loop.advance(5000);
  EXPECT_TRUE(reply_there());
  EXPECT_TRUE(w.dialogs.shown.empty());
  w.files.set_being_written(w.path(L"orblt.tt"), false);
  reply("new:3\r\ninf:a\r\n");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
}

TEST_F(ClientLinkTest, AReplyThatCannotBeReadYetIsReadLater) {
  report_off();
  w.files.make_unreadable(w.path(L"orblt.tt"));
  reply("inf:a\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty());
  w.files.mend(w.path(L"orblt.tt"));
  w.loop.advance(500);
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
}

TEST_F(ClientLinkTest, TheReplyToAReportMadeMeanwhileIsNotLost) {
  report_off();
  w.dialogs.while_open = [&] {
    w.dialogs.while_open = {};
    link.enable_Timer1();
    w.loop.advance(3000);
    w.put(L"orblt.tt", "inf:b\r\n");
  };
  reply("inf:a\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  w.loop.advance(500);
  ASSERT_EQ(w.dialogs.shown.size(), 2U);
  EXPECT_EQ(w.dialogs.shown[1].text.substr(0, 3), L"\r\nb");
  EXPECT_FALSE(reply_there());
}

// Timer1 falls due behind Timer2, in whose tick it is handled: nobody came to either for a while.
TEST_F(ClientLinkTest, AReplyIsNotAskedAboutWhenTheReportBeneathFindsTheLinkOn) {
  report_off();
  w.set_option(18, "#018:DDD:on");
  late_reports();
  w.loop.advance(5000);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"}));
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, AReplyThatCameToTheReportBeneathIsAskedAboutOnce) {
  report_off();
  programs.during = [&] { w.put(L"orblt.tt", "inf:b\r\n"); };
  late_reports();
  w.loop.advance(5000);
  EXPECT_EQ(w.journal, (Journal{L"off RADIO1"}));
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text.substr(0, 3), L"\r\nb");
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkTest, EveryLineAsksWithItsWholeText) {
  report_off();
  std::string many;
  for (int i = 0; i < 500; ++i)
    many += "inf:" + std::to_string(i) + "\r\n";
  const std::wstring news(20000, L'n');
  const std::wstring text(20000, L'i');
  reply("new:" + std::string(20000, 'n') + "\r\ninf:" + std::string(20000, 'i') + "\r\nnew:\r\n" + many);
  ASSERT_EQ(w.dialogs.shown.size(), 501U);
  EXPECT_EQ(w.dialogs.shown[0].text, news + L"\r\n" + text + L"\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_EQ(w.dialogs.shown[500].text, L"\r\n499\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkTest, ABinaryReplyIsNothing) {
  report_off();
  reply(std::string("\0\xff\r\n\0inf:\r\ninf", 14));
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkTest, NothingIsAskedOrStartedWhenTheProgramEnds) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  w.dialogs.while_open = [&] { w.loop.quit(); };
  reply("inf:a\r\ninf:b\r\n");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.messages.sent.empty());
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

TEST_F(ClientLinkTest, AReplyThatIsFoundWhenTheEndBeginsStays) {
  report_off();
  w.put(L"orblt.tt", "inf:a\r\n");
  w.loop.at(500, [&] { w.loop.begin_end(); });
  w.loop.advance(500);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkTest, AReplyWhoseQuestionTheEndClosesStays) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  w.dialogs.while_open = [&] { w.loop.begin_end(); };
  reply("inf:a\r\ninf:b\r\n");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(reply_there());
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
