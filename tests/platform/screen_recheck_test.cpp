// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/screen_recheck.h"
#include "platform/memory/event_loop.h"

#include <gtest/gtest.h>

#include <memory>

namespace lumotune::platform {
namespace {

struct ScreenRecheckTest : testing::Test {
  memory::EventLoop loop;
  int looks = 0;
  std::unique_ptr<ScreenRecheck> recheck = std::make_unique<ScreenRecheck>(loop, [this] { ++looks; });
};

TEST_F(ScreenRecheckTest, LooksForTenSeconds) {
  loop.advance(1000);
  EXPECT_EQ(looks, 0) << "nothing has happened";
  recheck->begin();
  loop.advance(500);
  EXPECT_EQ(looks, 1);
  loop.advance(9500);
  EXPECT_EQ(looks, 20);
  loop.advance(60000);
  EXPECT_EQ(looks, 20);
}

TEST_F(ScreenRecheckTest, BeginsAnew) {
  recheck->begin();
  loop.advance(8000);
  recheck->begin();
  loop.advance(60000);
  EXPECT_EQ(looks, 36);
}

TEST_F(ScreenRecheckTest, LooksNoMoreOnceItIsGone) {
  recheck->begin();
  recheck.reset();
  loop.advance(60000);
  EXPECT_EQ(looks, 0);
}

} // namespace
} // namespace lumotune::platform
