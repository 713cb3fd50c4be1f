// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_file.h"

#include <gtest/gtest.h>

namespace lumotune::skin {
namespace {

TEST(SkinFile, ALineWithoutABarIsIgnored) {
  EXPECT_FALSE(SkinLine::parse(L"Control_Play"));
  EXPECT_FALSE(SkinLine::parse(L""));
}

TEST(SkinFile, TheAuthorsLineIsIgnoredWhateverFollows) {
  EXPECT_FALSE(SkinLine::parse(L"Author|LTform|1|2"));
  EXPECT_FALSE(SkinLine::parse(L"AUTHOR|"));
}

TEST(SkinFile, CutsAtEveryBar) {
  const auto line = SkinLine::parse(L"control_list|SHOW|10||x|");
  ASSERT_TRUE(line);
  EXPECT_TRUE(line->names(L"Control_List"));
  EXPECT_TRUE(line->shows());
  EXPECT_EQ(line->twips(2), 10);
  EXPECT_EQ(line->field(3), L"");
  EXPECT_EQ(line->field(5), L"");
  EXPECT_EQ(line->field(99), L"");
}

TEST(SkinFile, NumbersAreWhole) {
  const auto line = SkinLine::parse(L"x|12|-12| 7 |1.5|12a||-|+3|1 2|12:|12/");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->twips(1), 12);
  EXPECT_EQ(line->twips(2), -12);
  EXPECT_EQ(line->twips(3), 7);
  EXPECT_EQ(line->twips(8), 3);
  for (const std::size_t bad : {4U, 5U, 6U, 7U, 9U, 10U, 11U, 20U}) {
    EXPECT_FALSE(line->twips(bad)) << bad;
    EXPECT_FALSE(line->size(bad)) << bad;
    EXPECT_FALSE(line->colour(bad)) << bad;
  }
}

TEST(SkinFile, AnyWholeNumberIsTakenAndClampedForItsUse) {
  const auto line =
      SkinLine::parse(L"x|-12|99999999999999999999999|-99999999999999999999999|120001|000000000000000042");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->size(1), 0);
  EXPECT_EQ(line->twips(2), max_twips);
  EXPECT_EQ(line->size(2), max_twips);
  EXPECT_EQ(line->number(2), 2147483647);
  EXPECT_EQ(line->twips(3), -max_twips);
  EXPECT_EQ(line->size(3), 0);
  EXPECT_EQ(line->twips(4), 120000);
  EXPECT_EQ(line->number(4), 120001);
  EXPECT_EQ(line->twips(5), 42);
}

TEST(SkinFile, ColoursBeyondWhiteAreWhiteAndNegativeOnesTheSystems) {
  using platform::Colour;
  const auto line = SkinLine::parse(L"x|16777215|16777216|99999999999|-2147483643|-1|-99999999999|0");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->colour(1), Colour{0xffffff});
  EXPECT_EQ(line->colour(2), Colour{0xffffff});
  EXPECT_EQ(line->colour(3), Colour{0xffffff});
  EXPECT_EQ(line->colour(4), Colour{0x80000005}) << "a window's ground";
  EXPECT_EQ(line->colour(5), Colour{0x800000ff});
  EXPECT_EQ(line->colour(6), Colour{0x80000000});
  EXPECT_EQ(line->colour(7), Colour{0});
}

TEST(SkinFile, TakesEveryKindOfLineEnd) {
  EXPECT_EQ(split_lines(L"a\r\nb\nc\rd"), (std::vector<std::wstring>{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(split_lines(L"\r\n\r\n"), (std::vector<std::wstring>{L"", L""}));
}

TEST(SkinFile, AHugeLineHasFewFields) {
  std::wstring huge;
  for (int i = 0; i < 500'000; ++i)
    huge += L"x|";
  const auto line = SkinLine::parse(huge);
  ASSERT_TRUE(line);
  EXPECT_EQ(line->field(63), L"x");
  EXPECT_EQ(line->field(64), L"");
}

} // namespace
} // namespace lumotune::skin
