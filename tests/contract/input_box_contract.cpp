// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

struct InputBoxContract : testing::Test {
  HandBackend b;
};

TEST_F(InputBoxContract, TheTypedTextComesBackAsItIs) {
  b.enter(L" url=http://127.0.0.1/žluťoučký&kůň. ");
  EXPECT_EQ(b.input_box.ask(L"Lumotune console", L"Lumotune - rádio", L""), L" url=http://127.0.0.1/žluťoučký&kůň. ");
}

TEST_F(InputBoxContract, AnEmptyTextIsNotACancelledOne) {
  b.enter(L"");
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"něco"), L"");
  b.cancel();
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"něco"), std::nullopt);
}

TEST_F(InputBoxContract, TwoThousandCharactersAtTheMost) {
  b.enter(std::wstring(5000, L'x'));
  const auto text = b.input_box.ask(L"Dotaz", L"Okno", L"");
  ASSERT_TRUE(text);
  EXPECT_LE(text->size(), 2000U);
}

TEST_F(InputBoxContract, TheBeginningOfTheEndClosesItAndNoneOpensAfterwards) {
  int opened = 0;
  b.while_open([&] {
    ++opened;
    b.loop.begin_end();
  });
  b.leave_open();
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"něco"), std::nullopt);
  b.leave_open();
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"něco"), std::nullopt);
  b.pass(50);
  EXPECT_EQ(opened, 1);
}

TEST_F(InputBoxContract, TimersTickWhileItIsOpen) {
  int ticks = 0;
  const auto timer = b.loop.make_timer(20, [&] { ++ticks; });
  timer->start();
  b.stay_open(300);
  b.enter(L"help");
  (void)b.input_box.ask(L"Dotaz", L"Okno", L"");
  EXPECT_GE(ticks, 3);
}

TEST_F(InputBoxContract, WhileOneIsOpenAnotherDoesNotOpen) {
  std::optional<std::wstring> inner = L"none";
  b.while_open([&] { inner = b.input_box.ask(L"Druhý", L"Okno", L""); });
  b.enter(L"help");
  EXPECT_EQ(b.input_box.ask(L"První", L"Okno", L""), L"help");
  EXPECT_EQ(inner, std::nullopt);
}

} // namespace
} // namespace lumotune::contract
