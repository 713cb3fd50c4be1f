// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/glide.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::glide_step;

TEST(Glide, StandsGoesStandsAndIsOver) {
  EXPECT_EQ(glide_step(0, 90, 1).offset, 0);
  EXPECT_EQ(glide_step(999, 90, 1).offset, 0);
  EXPECT_EQ(glide_step(2000, 90, 1).offset, 45);
  EXPECT_EQ(glide_step(3000, 90, 1).offset, 90);
  EXPECT_EQ(glide_step(3999, 90, 1).offset, 90);
  EXPECT_FALSE(glide_step(3999, 90, 1).over);
  EXPECT_TRUE(glide_step(4000, 90, 1).over);
  EXPECT_EQ(glide_step(4000, 90, 1).offset, 0) << "it rests at its beginning";
}

TEST(Glide, TakesAsLongOnAFinerScreen) {
  EXPECT_EQ(glide_step(2000, 180, 2).offset, 90);
  EXPECT_TRUE(glide_step(4000, 180, 2).over);
}

TEST(Glide, WhatHasRoomDoesNot) {
  EXPECT_TRUE(glide_step(0, 0, 1).over);
  EXPECT_TRUE(glide_step(0, -5, 1).over);
}

} // namespace
} // namespace lumotune::test
