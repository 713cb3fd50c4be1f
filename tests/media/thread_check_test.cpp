// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/thread_check.h"

#include "platform/media/engine.h"

#include <memory>
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

TEST(ThreadCheckDeathTest, TheEngineIsCalledOnItsOwnersThreadOnly) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  media::PlayerOptions options;
  options.make_output = [] { return nullptr; };
  const auto try_on_another = [&](const auto& use) {
    media::Engine engine(options, std::make_shared<media::Board>());
    on_another_thread([&] { use(engine); });
  };
  const char* message = "called on another thread than the user-interface thread";
  EXPECT_DEATH(try_on_another([](media::Engine& engine) { engine.wish({}); }), message);
  EXPECT_DEATH(try_on_another([](media::Engine& engine) { engine.abandon(); }), message);
  EXPECT_DEATH(try_on_another([](media::Engine& engine) { engine.set_volume(1); }), message);
}

} // namespace
} // namespace lumotune::platform
