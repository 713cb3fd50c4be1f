// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace lumotune::contract {
namespace {

struct EventLoopContract : testing::Test {
  Backend b;

  // What was due before that has had its turn by then.
  void wait_for_another_timer(std::uint32_t ms) {
    bool ticked = false;
    const auto witness = b.loop.make_timer(ms, [&] { ticked = true; });
    witness->start();
    EXPECT_TRUE(b.until([&] { return ticked; }));
  }
};

TEST_F(EventLoopContract, ATimerIsStoppedWhenMadeAndRepeatsOnceStarted) {
  int ticks = 0;
  const auto timer = b.loop.make_timer(20, [&] { ++ticks; });
  EXPECT_FALSE(timer->running());
  wait_for_another_timer(60);
  EXPECT_EQ(ticks, 0);
  timer->start();
  EXPECT_TRUE(timer->running());
  EXPECT_TRUE(b.until([&] { return ticks >= 3; }));
  timer->stop();
  const int before = ticks;
  wait_for_another_timer(60);
  EXPECT_EQ(ticks, before);
}

TEST_F(EventLoopContract, ADestroyedTimerTicksNoMore) {
  int ticks = 0;
  auto timer = b.loop.make_timer(10, [&] { ++ticks; });
  timer->start();
  timer.reset();
  wait_for_another_timer(50);
  EXPECT_EQ(ticks, 0);
}

TEST_F(EventLoopContract, ATimerMayDestroyItselfInItsTick) {
  int ticks = 0;
  std::unique_ptr<platform::Timer> timer;
  timer = b.loop.make_timer(10, [&] {
    ++ticks;
    timer.reset();
  });
  timer->start();
  EXPECT_TRUE(b.until([&] { return ticks == 1; }));
  wait_for_another_timer(50);
  EXPECT_EQ(ticks, 1);
}

TEST_F(EventLoopContract, ATickDoesNotNestInItself) {
  int depth = 0;
  int deepest = 0;
  int ticks = 0;
  std::unique_ptr<platform::Timer> timer;
  timer = b.loop.make_timer(10, [&] {
    ++depth;
    deepest = std::max(deepest, depth);
    wait_for_another_timer(60);
    --depth;
    if (++ticks == 2)
      timer->stop();
  });
  timer->start();
  EXPECT_TRUE(b.until([&] { return ticks == 2; }));
  EXPECT_EQ(deepest, 1);
}

TEST_F(EventLoopContract, OtherTimersTickInsideAWaitingTick) {
  int other = 0;
  bool waited = false;
  const auto fast = b.loop.make_timer(10, [&] { ++other; });
  const auto slow = b.loop.make_timer(30, [&] {
    if (waited)
      return;
    waited = true;
    const int before = other;
    EXPECT_TRUE(b.until([&] { return other > before; }));
  });
  fast->start();
  slow->start();
  EXPECT_TRUE(b.until([&] { return waited; }));
}

TEST_F(EventLoopContract, ManyWakesAreOneRun) {
  int runs = 0;
  const auto waker = b.loop.make_waker([&] { ++runs; });
  for (int i = 0; i < 1000; ++i)
    waker->wake();
  EXPECT_EQ(runs, 0) << "not inside the call";
  b.loop.run_pending();
  EXPECT_EQ(runs, 1);
  waker->wake();
  b.loop.run_pending();
  EXPECT_EQ(runs, 2);
}

TEST_F(EventLoopContract, AnotherThreadMayWake) {
  int runs = 0;
  const auto waker = b.loop.make_waker([&] { ++runs; });
  std::thread other([&] { waker->wake(); });
  other.join();
  b.loop.run_pending();
  EXPECT_EQ(runs, 1);
}

TEST_F(EventLoopContract, ADestroyedWakerRunsNoMore) {
  int runs = 0;
  auto waker = b.loop.make_waker([&] { ++runs; });
  waker->wake();
  waker.reset();
  b.loop.run_pending();
  EXPECT_EQ(runs, 0);
}

TEST_F(EventLoopContract, AWakerMayDestroyAnother) {
  int runs = 0;
  std::unique_ptr<platform::Waker> second;
  const auto first = b.loop.make_waker([&] { second.reset(); });
  second = b.loop.make_waker([&] { ++runs; });
  first->wake();
  second->wake();
  b.loop.run_pending();
  EXPECT_EQ(runs, 0);
}

TEST_F(EventLoopContract, WaitsEndWithTheProgram) {
  EXPECT_TRUE(b.loop.wait_a_little());
  EXPECT_FALSE(b.loop.quitting());
  b.loop.quit();
  EXPECT_TRUE(b.loop.quitting());
  EXPECT_FALSE(b.loop.wait_a_little());
}

TEST_F(EventLoopContract, RunEndsByQuit) {
  const auto timer = b.loop.make_timer(20, [&] { b.loop.quit(); });
  timer->start();
  b.loop.run();
  EXPECT_TRUE(b.loop.quitting());
}

TEST_F(EventLoopContract, TheTickCountGrows) {
  const auto start = b.loop.tick_count_ms();
  EXPECT_TRUE(b.until([&] { return b.loop.tick_count_ms() - start >= 50U; }));
}

} // namespace
} // namespace lumotune::contract
