// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/text.h"

#include <gtest/gtest.h>

namespace lumotune::base {
namespace {

TEST(Text, FoldsCzechLettersWithoutALocale) {
  EXPECT_TRUE(equal_ignoring_case(L"ŽLUŤOUČKÝ KŮŇ ĚŘŠ", L"žluťoučký kůň ěřš"));
  EXPECT_TRUE(equal_ignoring_case(L"ĽŁŹŃ", L"ľłźń"));
  EXPECT_TRUE(equal_ignoring_case(L"ЁЖ ΑΩ", L"ёж αω"));
  EXPECT_TRUE(equal_ignoring_case(L"ΆΈΌΎΏ ӁӐ", L"άέόύώ ӂӑ"));
  EXPECT_FALSE(equal_ignoring_case(L"č", L"c"));
  EXPECT_FALSE(equal_ignoring_case(L"abc", L"abcd"));
  EXPECT_EQ(fold(L'×'), L'×');
}

TEST(Text, MidCountsFromOne) {
  EXPECT_EQ(mid(L"abcdef", 1, 2), L"ab");
  EXPECT_EQ(mid(L"abcdef", 5), L"ef");
  EXPECT_EQ(mid(L"abc", 4), L"");
  EXPECT_EQ(mid(L"abc", 99, 3), L"");
  EXPECT_EQ(mid(L"abc", 0), L"");
}

TEST(Text, TrimsSpacesAndTabs) {
  EXPECT_EQ(trimmed(L" \ta b\t "), L"a b");
  EXPECT_EQ(trimmed(" \ta b\t "), "a b");
  EXPECT_EQ(trimmed(L"\r\na"), L"\r\na");
  EXPECT_EQ(trimmed(L" \t "), L"");
  EXPECT_EQ(trimmed(L""), L"");
}

TEST(Text, CutsRecordsAtEachDelimiter) {
  EXPECT_EQ(split_record(L"a/@//@/b"), (std::vector<std::wstring>{L"a", L"", L"b"}));
  EXPECT_EQ(split_record(L""), (std::vector<std::wstring>{L""}));
  EXPECT_EQ(split_record(L"/@/@/"), (std::vector<std::wstring>{L"", L"@/"}));
  EXPECT_EQ(split_record(L"1/@/2/@/3", 2).size(), 2U);
}

TEST(Text, ReadsLeadingNumbers) {
  EXPECT_EQ(number_value(L"1.0"), 1.0);
  EXPECT_EQ(number_value(L" 12abc"), 12.0);
  EXPECT_EQ(number_value(L"-2.5"), -2.5);
  EXPECT_EQ(number_value(L"abc"), 0.0);
  EXPECT_EQ(number_value(L""), 0.0);
  EXPECT_EQ(number_value(L"."), 0.0);
}

TEST(Text, TakesOnlyWholeNumbersOfTwips) {
  EXPECT_EQ(twips_value(L"3000"), 3000);
  EXPECT_EQ(twips_value(L" -15 "), -15);
  EXPECT_EQ(twips_value(L"10.6"), 11);
  EXPECT_FALSE(twips_value(L""));
  EXPECT_FALSE(twips_value(L"12x"));
  EXPECT_FALSE(twips_value(L"99999999999999999999999"));
}

TEST(Text, VolumeIsClampedFromItsLeadingDigits) {
  EXPECT_EQ(volume_value(L"40"), 40);
  EXPECT_EQ(volume_value(L"70 %"), 70);
  EXPECT_EQ(volume_value(L"250"), 100);
  EXPECT_EQ(volume_value(L"-3"), 0);
  EXPECT_EQ(volume_value(L""), 50);
  EXPECT_EQ(volume_value(L"hlasitě"), 50);
}

} // namespace
} // namespace lumotune::base
