// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/thread_check.h"

#include <thread>

#include <gtest/gtest.h>

namespace lumotune::platform {
namespace {

template <typename Use>
void on_another_thread(const Use& use) {
  std::thread(use).join();
}

TEST(ThreadCheck, HoldsOnTheThreadThatMadeIt) {
  const ThreadCheck role("test thread");
  EXPECT_TRUE(role.holds());
  role.check();
  on_another_thread([&] { EXPECT_FALSE(role.holds()); });
}

TEST(ThreadCheck, FollowsARebind) {
  ThreadCheck role("worker thread");
  on_another_thread([&] {
    role.rebind();
    EXPECT_TRUE(role.holds());
    role.check();
  });
  EXPECT_FALSE(role.holds());
}

TEST(ThreadCheckDeathTest, StopsTheProgramAndNamesTheRole) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  const ThreadCheck role("user-interface thread");
  EXPECT_DEATH(on_another_thread([&] { role.check(); }), "called on another thread than the user-interface thread");
}

} // namespace
} // namespace lumotune::platform
