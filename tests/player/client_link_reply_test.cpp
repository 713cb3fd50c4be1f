// SPDX-License-Identifier: LGPL-2.1-or-later
// The reply to a play report: when it is read, what it asks, when it goes.
#include "tests/player/client_link_world.h"

namespace lumotune::test {
namespace {

struct ClientLinkReplyTest : ClientLinkWorld {};

TEST_F(ClientLinkReplyTest, WithTheLinkOnNoReplyIsReadNorRemoved) {
  link.enable_Timer1();
  w.loop.advance(3000);
  reply("inf:zprava\r\n");
  w.loop.advance(5000);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkReplyTest, OnceTheLinkIsOnTheReplyToAnEarlierReportIsNotLookedFor) {
  report_off();
  w.set_option(18, "#018:DDD:on");
  link.enable_Timer1();
  w.loop.advance(3000);
  const auto looked = w.files.writers_asked_for();
  reply("inf:zprava\r\n");
  w.loop.advance(5000);
  EXPECT_EQ(w.files.writers_asked_for(), looked);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkReplyTest, AReplyAsksAndIsRemoved) {
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

TEST_F(ClientLinkReplyTest, AReplyThatIsTooLongIsRemovedUnread) {
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

TEST_F(ClientLinkReplyTest, TheQuestionHasTheNewMessagesFirst) {
  report_off();
  reply("inf:prvn\xed\r\nnew:3\r\nINF:druh\xe1\r\nNew:4\r\ninf:\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 3U) << "each line asks once";
  EXPECT_EQ(w.dialogs.shown[0].text, L"\r\nprvní\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_EQ(w.dialogs.shown[1].text, L"3\r\ndruhá\r\n\r\nChcete zapnout Orb klienta?");
  EXPECT_EQ(w.dialogs.shown[2].text, L"4\r\n\r\n\r\nChcete zapnout Orb klienta?");
}

TEST_F(ClientLinkReplyTest, PendingEventsRunBeforeTheReplyIsReadAndBeforeItGoes) {
  report_off();
  w.loop.at(500, [&] { w.put(L"orblt.tt", "inf:novější\r\n"); });
  bool there = false;
  w.dialogs.while_open = [&] { w.loop.at(0, [&] { there = reply_there(); }); };
  reply("inf:a\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_NE(w.dialogs.shown[0].text.substr(0, 3), L"\r\na");
  EXPECT_TRUE(there);
}

TEST_F(ClientLinkReplyTest, PendingEventsRunAfterAnOldReplyWent) {
  for (const bool on : {true, false}) {
    w.set_option(18, on ? "#018:DDD:on" : "#018:DDD:off");
    link.enable_Timer1();
    const auto before = w.loop.pending_runs();
    w.loop.advance(3000);
    EXPECT_EQ(w.loop.pending_runs() - before, on ? 1U : 2U);
  }
}

TEST_F(ClientLinkReplyTest, EachReplyBeginsWithoutNewMessages) {
  report_off();
  reply("new:3\r\ninf:a\r\n");
  report_off();
  reply("inf:b\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 2U);
  EXPECT_EQ(w.dialogs.shown[1].text.substr(0, 3), L"\r\nb");
}

TEST_F(ClientLinkReplyTest, YesAsksTheClientToShowItself) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  reply("inf:a\r\n");
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].bytes, "lt:RADIO1");
  EXPECT_EQ(w.messages.sent[0].target, platform::WindowRef{77});
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(ClientLinkReplyTest, YesStartsAMissingClientOnce) {
  report_off();
  w.messages.remove_window(L"Orb - Lumotune");
  w.dialogs.answers = {platform::BoxAnswer::yes};
  reply("inf:a\r\n");
  ASSERT_EQ(w.shell.started.size(), 1U);
  EXPECT_EQ(w.shell.started[0].command_line, L"orb.exe");
}

TEST_F(ClientLinkReplyTest, OneReplyIsReadOnce) {
  report_off();
  reply("inf:a\r\n");
  reply("inf:b\r\n");
  w.loop.advance(5000);
  EXPECT_EQ(w.dialogs.shown.size(), 1U) << "until the next report nothing is looked for";
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkReplyTest, AReplyThatIsBeingWrittenIsNotThereYet) {
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

TEST_F(ClientLinkReplyTest, AReplyThatCannotBeReadYetIsReadLater) {
  report_off();
  w.files.make_unreadable(w.path(L"orblt.tt"));
  reply("inf:a\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty());
  w.files.mend(w.path(L"orblt.tt"));
  w.loop.advance(500);
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
}

TEST_F(ClientLinkReplyTest, TheReplyToAReportMadeMeanwhileIsNotLost) {
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
TEST_F(ClientLinkReplyTest, AReplyIsNotAskedAboutWhenTheReportBeneathFindsTheLinkOn) {
  report_off();
  w.set_option(18, "#018:DDD:on");
  late_reports();
  w.loop.advance(5000);
  EXPECT_EQ(w.journal, (Journal{L"client", L"on RADIO1"}));
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkReplyTest, AReplyThatCameToTheReportBeneathIsAskedAboutOnce) {
  report_off();
  programs.during = [&] { w.put(L"orblt.tt", "inf:b\r\n"); };
  late_reports();
  w.loop.advance(5000);
  EXPECT_EQ(w.journal, (Journal{L"off RADIO1"}));
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text.substr(0, 3), L"\r\nb");
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkReplyTest, EveryLineAsksWithItsWholeText) {
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

TEST_F(ClientLinkReplyTest, ABinaryReplyIsNothing) {
  report_off();
  reply(std::string("\0\xff\r\n\0inf:\r\ninf", 14));
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_FALSE(reply_there());
}

TEST_F(ClientLinkReplyTest, NothingIsAskedOrStartedWhenTheProgramEnds) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  w.dialogs.while_open = [&] { w.loop.quit(); };
  reply("inf:a\r\ninf:b\r\n");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.messages.sent.empty());
}

TEST_F(ClientLinkReplyTest, AReplyThatIsFoundWhenTheEndBeginsStays) {
  report_off();
  w.put(L"orblt.tt", "inf:a\r\n");
  w.loop.at(500, [&] { w.loop.begin_end(); });
  w.loop.advance(500);
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_TRUE(reply_there());
}

TEST_F(ClientLinkReplyTest, AReplyWhoseQuestionTheEndClosesStays) {
  report_off();
  w.dialogs.answers = {platform::BoxAnswer::yes};
  w.dialogs.while_open = [&] { w.loop.begin_end(); };
  reply("inf:a\r\ninf:b\r\n");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(reply_there());
}

} // namespace
} // namespace lumotune::test
