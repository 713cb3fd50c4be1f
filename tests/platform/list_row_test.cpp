// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/list_row.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::row_colours;
using platform::split_row;

TEST(ListRow, TheSelectedGroundIsQuietAndTheTextStays) {
  const auto resting = row_colours(0x1a140c, 0xf8f6f2, false);
  EXPECT_EQ(resting.ground, 0x1a140cU);
  const auto selected = row_colours(0x1a140c, 0xf8f6f2, true);
  EXPECT_EQ(selected.text, 0xf8f6f2U);
  EXPECT_GT(selected.ground & 0xffU, 0x0cU + 20);
  EXPECT_LT(selected.ground & 0xffU, 0x0cU + 60);
  EXPECT_LT(resting.dim & 0xffU, 0xf2U);
  EXPECT_GT(resting.dim & 0xffU, 0x70U) << "it can still be read";
}

TEST(ListRow, OnALightGroundItIsDarker) {
  EXPECT_LT(row_colours(0xffffff, 0, true).ground, 0xffffffU);
  EXPECT_GT(row_colours(0xffffff, 0, false).dim, 0U);
}

TEST(ListRow, DarkIsWhatWhiteStandsOutFrom) {
  EXPECT_TRUE(platform::is_dark(0));
  EXPECT_TRUE(platform::is_dark(0xff0000)) << "blue";
  EXPECT_FALSE(platform::is_dark(0x00ff00)) << "green";
  EXPECT_FALSE(platform::is_dark(0xffffff));
}

TEST(ListRow, WhatStandsLastInParenthesesStandsSecond) {
  const auto row = split_row(L"Rádio (Praha)  (128kbps)    ");
  EXPECT_EQ(row.first, L"Rádio (Praha)");
  EXPECT_EQ(row.second, L"(128kbps)");
  EXPECT_EQ(split_row(L"Rádio").first, L"Rádio");
  EXPECT_EQ(split_row(L"Rádio").second, L"");
  EXPECT_EQ(split_row(L"(128kbps)").first, L"(128kbps)") << "nothing but parentheses is the name";
  EXPECT_EQ(split_row(L"Rádio (128").second, L"");
  EXPECT_EQ(split_row(L")").first, L")");
  EXPECT_EQ(split_row(L"").first, L"");
}

} // namespace
} // namespace lumotune::test
