// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/send_command.h"

#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::ShowWindow;
using platform::WindowRef;

struct SendCommand : testing::Test {
  MemoryPlatform w;
  companions::CommandSender sender{{w.loop, w.messages, w.shell, w.codec}};
  void send(const std::wstring& mode) { sender.SendCommand(L"prog.exe", L"Okno", L"lts:č", mode); }
};

TEST_F(SendCommand, DeliversAnsiBytesToTheWindowFound) {
  w.messages.add_window(L"Okno", WindowRef{5});
  send(L"2");
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].target, WindowRef{5});
  EXPECT_EQ(w.messages.sent[0].bytes, "lts:\xe8");
  EXPECT_TRUE(w.shell.started.empty());
}

// The receiver takes its three seconds: what the program does by the clock goes on, and another command waits its turn.
TEST_F(SendCommand, AReceiverThatHangsLetsEventsRun) {
  w.messages.add_window(L"Okno", WindowRef{5});
  w.messages.busy_looks = 600; // of 5 ms
  int ticks = 0;
  const auto clock = w.loop.make_timer(100, [&] { ++ticks; });
  clock->start();
  w.loop.at(1000, [this] { sender.SendCommand(L"prog.exe", L"Okno", L"druhy", L"1"); });
  const auto begun = w.loop.tick_count_ms();
  send(L"1");
  EXPECT_EQ(w.loop.tick_count_ms() - begun, 3000U) << "returns when it has been handled";
  EXPECT_GE(ticks, 29);
  ASSERT_EQ(w.messages.sent.size(), 2U);
  EXPECT_EQ(w.messages.sent[0].bytes, "lts:\xe8");
  EXPECT_EQ(w.messages.sent[1].bytes, "druhy");
}

TEST_F(SendCommand, TheEndOfTheProgramDoesNotWaitForAReceiverThatHangs) {
  w.messages.add_window(L"Okno", WindowRef{5});
  w.messages.busy_looks = 600;
  w.loop.at(100, [this] { w.loop.quit(); });
  const auto begun = w.loop.tick_count_ms();
  send(L"1");
  EXPECT_LE(w.loop.tick_count_ms() - begun, 105U);
}

TEST_F(SendCommand, ModeOneAndAnEmptyOneStartTheProgramOnceWithoutRetry) {
  for (const wchar_t* mode : {L"1", L""}) {
    w.shell.started.clear();
    w.messages.looked_up.clear();
    send(mode);
    ASSERT_EQ(w.shell.started.size(), 1U);
    EXPECT_EQ(w.shell.started[0].command_line, L"prog.exe");
    EXPECT_EQ(w.shell.started[0].show, ShowWindow::normal_focus);
    EXPECT_EQ(w.messages.looked_up.size(), 1U);
    EXPECT_TRUE(w.messages.sent.empty());
  }
}

TEST_F(SendCommand, OtherModesLookOnceAndStartNothing) {
  for (const wchar_t* mode : {L"0", L"x"}) {
    w.messages.looked_up.clear();
    send(mode);
    EXPECT_EQ(w.messages.looked_up.size(), 1U);
    EXPECT_TRUE(w.shell.started.empty());
    EXPECT_TRUE(w.messages.sent.empty());
  }
}

TEST_F(SendCommand, ModeTwoGivesUpAfterNineLookUpsWithoutSending) {
  w.loop.set_wait_step(1);
  const auto start = w.loop.tick_count_ms();
  send(L"2");
  EXPECT_EQ(w.messages.looked_up.size(), 9U);
  EXPECT_EQ(w.shell.started.size(), 9U);
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_EQ(w.loop.tick_count_ms() - start, 9 * 1501U) << "each wait ends when more than 1500 ms are over";
}

TEST_F(SendCommand, ModeTwoFindsAWindowThatAppearsMeanwhile) {
  w.loop.at(2000, [this] { w.messages.add_window(L"Okno", WindowRef{9}); });
  send(L"2");
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.looked_up.size(), 3U);
}

TEST_F(SendCommand, AnEndingProgramDoesNotGoOnWaiting) {
  w.loop.at(100, [this] { w.loop.quit(); });
  send(L"2");
  EXPECT_EQ(w.messages.looked_up.size(), 1U);
  EXPECT_TRUE(w.messages.sent.empty());
}

TEST_F(SendCommand, EventsRunBeforeTheLookUp) {
  w.loop.at(0, [this] { w.messages.add_window(L"Okno", WindowRef{4}); });
  send(L"0");
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].target, WindowRef{4});
}

TEST_F(SendCommand, EventsRunAfterTheStart) {
  bool ran = false;
  w.shell.on_start = [&](const auto&) { w.loop.at(0, [&] { ran = true; }); };
  send(L"1");
  EXPECT_TRUE(ran);
}

TEST_F(SendCommand, AProgramThatCannotBeStartedIsStillLookedFor) {
  w.shell.start_works = false;
  send(L"2");
  EXPECT_EQ(w.messages.looked_up.size(), 9U);
}

TEST_F(SendCommand, AnEndingProgramStillSaysItsLastWord) {
  w.messages.add_window(L"Okno", WindowRef{5});
  w.loop.quit();
  send(L"x");
  EXPECT_EQ(w.messages.sent.size(), 1U);
  send(L"2");
  EXPECT_EQ(w.messages.sent.size(), 1U) << "but it does not begin to retry";
}

} // namespace
} // namespace lumotune::test
