// SPDX-License-Identifier: LGPL-2.1-or-later
// Long work in short turns: when a turn ends, and what may happen between two of them.
#include "base/stepped_work.h"

#include "platform/memory/event_loop.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace lumotune::base {
namespace {

struct SteppedWorkTest : testing::Test {
  platform::memory::EventLoop loop;
  SteppedWork work{loop};
  std::string log;

  [[nodiscard]] SteppedWork::Step step(char name) {
    return [this, name] {
      log += name;
      return true;
    };
  }
  [[nodiscard]] SteppedWork::Step pieces(char name, int count) {
    return [this, name, count]() mutable {
      log += name;
      return --count == 0;
    };
  }
  void start(std::vector<SteppedWork::Step> steps) { work.start(std::move(steps), end(), loop.tick_count_ms()); }
  [[nodiscard]] std::function<void()> end() {
    return [this] { log += '.'; };
  }
};

TEST_F(SteppedWorkTest, WorkThatIsQuickIsDoneAtOnce) {
  start({step('a'), pieces('b', 3), step('c')});
  EXPECT_EQ(log, "abbbc.");
  EXPECT_FALSE(work.running());
}

TEST_F(SteppedWorkTest, ATurnEndsWhenItsTimeIsUsedUp) {
  loop.set_look_cost(4);
  start({step('a'), pieces('b', 3), step('c')});
  EXPECT_EQ(log, "a");
  EXPECT_TRUE(work.running());
  loop.run_pending();
  EXPECT_EQ(log, "a") << "what waits in the queue comes first";
  loop.advance(1);
  EXPECT_EQ(log, "abb");
  loop.advance(1);
  EXPECT_EQ(log, "abbbc.");
  EXPECT_FALSE(work.running());
  loop.advance(1000);
  EXPECT_EQ(log, "abbbc.");
}

TEST_F(SteppedWorkTest, ATurnThatIsUsedUpAlreadyWaitsForTheNext) {
  const std::uint32_t begun = loop.tick_count_ms();
  loop.advance(SteppedWork::turn_ms);
  work.start({step('a')}, end(), begun);
  EXPECT_EQ(log, "");
  EXPECT_TRUE(work.running());
  loop.advance(1);
  EXPECT_EQ(log, "a.");
}

TEST_F(SteppedWorkTest, EveryTurnDoesSomethingHoweverSlowTheMachine) {
  loop.set_look_cost(100);
  start({step('a'), pieces('b', 2)});
  EXPECT_EQ(log, "");
  for (const char* done : {"a", "ab", "abb."}) {
    loop.advance(1);
    EXPECT_EQ(log, done);
  }
}

TEST_F(SteppedWorkTest, AClockThatWrapsMakesNoDifference) {
  platform::memory::EventLoop late(0xfffffffaU);
  late.set_look_cost(3);
  SteppedWork there(late);
  there.start({pieces('a', 3)}, end(), late.tick_count_ms());
  EXPECT_EQ(log, "aa");
}

TEST_F(SteppedWorkTest, GivenUpItDoesNothingMore) {
  loop.set_look_cost(5);
  start({step('a'), step('b')});
  work.give_up();
  loop.advance(1000);
  EXPECT_EQ(log, "a");
  EXPECT_FALSE(work.running());
}

TEST_F(SteppedWorkTest, AStepMayGiveItUp) {
  work.start({[this] {
                work.give_up();
                return true;
              },
              step('b')},
             end(), loop.tick_count_ms());
  loop.advance(1000);
  EXPECT_EQ(log, "");
}

TEST_F(SteppedWorkTest, AStepMayStartOtherWork) {
  work.start(
      {[this] {
         start({step('x')});
         return true;
       },
       step('b')},
      [this] { log += '!'; }, loop.tick_count_ms());
  loop.advance(1000);
  EXPECT_EQ(log, "x.");
}

TEST_F(SteppedWorkTest, AStepThatRunsEventsIsNotEnteredTwice) {
  loop.set_look_cost(5);
  work.start({step('a'),
              [this] {
                log += '(';
                for (int pass = 0; pass < 5; ++pass)
                  (void)loop.wait_a_little();
                log += ')';
                return true;
              },
              step('b')},
             end(), loop.tick_count_ms());
  loop.advance(1000);
  EXPECT_EQ(log, "a()b.");
}

TEST_F(SteppedWorkTest, WaitsOfOthersDoNotHoldItUp) {
  loop.set_look_cost(5);
  start({step('a'), step('b')});
  const platform::memory::EventLoop::Nested box(loop);
  loop.advance(1);
  EXPECT_EQ(log, "ab.");
}

TEST_F(SteppedWorkTest, TheEndOfTheProgramEndsIt) {
  loop.set_look_cost(5);
  start({step('a'), step('b')});
  loop.quit();
  loop.advance(1000);
  EXPECT_EQ(log, "a");
  start({step('c')});
  EXPECT_EQ(log, "a");
}

} // namespace
} // namespace lumotune::base
