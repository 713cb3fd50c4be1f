// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

struct DialogsContract : testing::Test {
  HandBackend b;
};

TEST_F(DialogsContract, APlainBoxHasOneAnswer) {
  b.answer(BoxAnswer::ok);
  EXPECT_EQ(b.dialogs.message(L"LTCC - HELP:\r\nvol=", L"Lumotune - rádio", BoxIcon::none, BoxButtons::ok),
            BoxAnswer::ok);
}

TEST_F(DialogsContract, AQuestionHasTwo) {
  for (const BoxAnswer answer : {BoxAnswer::yes, BoxAnswer::no}) {
    b.answer(answer);
    EXPECT_EQ(b.dialogs.message(L"Ano, či ne?", L"Otázka", BoxIcon::information, BoxButtons::yes_no), answer);
  }
}

TEST_F(DialogsContract, EventsRunWhileABoxIsOpen) {
  int runs = 0;
  const auto waker = b.loop.make_waker([&] { ++runs; });
  b.while_open([&] {
    waker->wake();
    b.loop.run_pending();
  });
  b.answer(BoxAnswer::ok);
  EXPECT_EQ(b.dialogs.message(L"Text", L"Okno", BoxIcon::information, BoxButtons::ok), BoxAnswer::ok);
  EXPECT_EQ(runs, 1);
}

TEST_F(DialogsContract, ABoxThatIsOpenCanBeBroughtForward) {
  EXPECT_FALSE(b.dialogs.bring_forward());
  bool brought = false;
  b.while_open([&] { brought = b.dialogs.bring_forward(); });
  b.answer(BoxAnswer::ok);
  (void)b.dialogs.message(L"Zpráva", L"Okno", BoxIcon::none, BoxButtons::ok);
  EXPECT_TRUE(brought);
  EXPECT_FALSE(b.dialogs.bring_forward());
}

TEST_F(DialogsContract, TheBeginningOfTheEndClosesABoxAndNoneOpensAfterwards) {
  int opened = 0;
  b.while_open([&] {
    ++opened;
    b.loop.begin_end();
  });
  b.leave_open();
  EXPECT_EQ(b.dialogs.message(L"Otázka", L"Okno", BoxIcon::information, BoxButtons::yes_no), BoxAnswer::no);
  b.leave_open();
  EXPECT_EQ(b.dialogs.message(L"Otázka", L"Okno", BoxIcon::information, BoxButtons::yes_no), BoxAnswer::no);
  EXPECT_EQ(b.dialogs.message(L"Zpráva", L"Okno", BoxIcon::none, BoxButtons::ok), BoxAnswer::ok);
  b.pass(50);
  EXPECT_EQ(opened, 1);
}

TEST_F(DialogsContract, TimersTickWhileABoxIsOpen) {
  int ticks = 0;
  const auto timer = b.loop.make_timer(20, [&] { ++ticks; });
  timer->start();
  b.stay_open(300);
  b.answer(BoxAnswer::ok);
  (void)b.dialogs.message(L"Text", L"Okno", BoxIcon::information, BoxButtons::ok);
  EXPECT_GE(ticks, 3);
}

TEST_F(DialogsContract, WorkOfAnotherThreadIsDoneWhileABoxIsOpen) {
  int runs = 0;
  const auto waker = b.loop.make_waker([&] { ++runs; });
  waker->wake();
  b.stay_open(100);
  b.answer(BoxAnswer::ok);
  (void)b.dialogs.message(L"Text", L"Okno", BoxIcon::none, BoxButtons::ok);
  EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace lumotune::contract
