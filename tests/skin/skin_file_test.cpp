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

TEST(SkinFile, NumbersMustBeWholeAndInRange) {
  const auto line = SkinLine::parse(L"x|12|-12| 7 |1.5|12a||99999999999|16777215|16777216|-1");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->twips(1), 12);
  EXPECT_EQ(line->twips(2), -12);
  EXPECT_FALSE(line->size(2));
  EXPECT_EQ(line->twips(3), 7);
  for (const std::size_t bad : {4U, 5U, 6U, 7U, 20U})
    EXPECT_FALSE(line->twips(bad)) << bad;
  EXPECT_EQ(line->colour(8), 0xffffffU);
  EXPECT_FALSE(line->colour(9));
  EXPECT_FALSE(line->colour(10));
}

TEST(SkinFile, TakesEveryKindOfLineEnd) {
  EXPECT_EQ(split_lines(L"a\r\nb\nc\rd"), (std::vector<std::wstring>{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(split_lines(L"\r\n\r\n"), (std::vector<std::wstring>{L"", L""}));
}

TEST(SkinFile, AHugeLineHasFewFields) {
  const auto line = SkinLine::parse(std::wstring(1'000'000, L'|'));
  ASSERT_TRUE(line);
  EXPECT_EQ(line->field(70), L"");
}

} // namespace
} // namespace lumotune::skin
