// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/pause.h"
#include "platform/memory/event_loop.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(Pause, EndsAtTheFirstDifferenceGreaterThanTheArgument) {
  platform::memory::EventLoop loop;
  loop.set_wait_step(1);
  const auto start = loop.tick_count_ms();
  EXPECT_TRUE(base::Pause(loop, 700));
  EXPECT_EQ(loop.tick_count_ms() - start, 701U);
}

TEST(Pause, OfZeroStillPassesOnce) {
  platform::memory::EventLoop loop;
  bool ran = false;
  loop.at(0, [&] { ran = true; });
  EXPECT_TRUE(base::Pause(loop, 0));
  EXPECT_TRUE(ran);
  EXPECT_GE(loop.wait_passes(), 1U);
}

TEST(Pause, LetsEventsRunInside) {
  platform::memory::EventLoop loop;
  int ticks = 0;
  const auto timer = loop.make_timer(100, [&] { ++ticks; });
  timer->start();
  EXPECT_TRUE(base::Pause(loop, 450));
  EXPECT_EQ(ticks, 4);
}

TEST(Pause, SurvivesTheWrapOfTheTickCount) {
  platform::memory::EventLoop loop(0xfffffff0U);
  EXPECT_TRUE(base::Pause(loop, 100));
  EXPECT_LT(loop.wait_passes(), 50U);
}

TEST(Pause, ReturnsAtOnceWhenTheProgramEnds) {
  platform::memory::EventLoop loop;
  const auto start = loop.tick_count_ms();
  loop.at(50, [&] { loop.quit(); });
  EXPECT_FALSE(base::Pause(loop, 100000));
  EXPECT_LE(loop.tick_count_ms() - start, 60U);
  EXPECT_FALSE(base::Pause(loop, 1));
}

} // namespace
} // namespace lumotune::test
