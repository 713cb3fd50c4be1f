// SPDX-License-Identifier: LGPL-2.1-or-later
// Text at its borders: every letter's case, digits' neighbours, signs without digits, what is replaced.
#include "base/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>

namespace lumotune::base {
namespace {

bool has_pairs(wint_t code) {
  return code < 0x180 || (code >= 0x386 && code <= 0x3ab) || (code >= 0x400 && code <= 0x52f);
}

// The system's own table for Latin, Greek and Cyrillic; the dotted capital I has no small letter of its own.
TEST(TextEdges, EveryLetterFoldsAsTheSystemHasIt) {
  const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(unicode, nullptr);
  constexpr wint_t dotted_capital_i = 0x130;
  constexpr wint_t palochka = 0x4c0; // its small letter is new and rarely written
  for (wint_t code = 0; code < 0x600; ++code) {
    const wint_t small =
        has_pairs(code) && code != dotted_capital_i && code != palochka ? towlower_l(code, unicode) : code;
    EXPECT_EQ(static_cast<wint_t>(fold(static_cast<wchar_t>(code))), small) << std::hex << code;
  }
  freelocale(unicode);
}

TEST(TextEdges, ADigitsNeighboursEndANumber) {
  EXPECT_EQ(number_value(L"10/3"), 10.0);
  EXPECT_EQ(number_value(L"9:5"), 9.0);
  EXPECT_EQ(number_value(L"1.25"), 1.25);
  EXPECT_EQ(number_value(L"+90.5.5"), 90.5);
  EXPECT_EQ(number_value(L".5"), 0.5);
  EXPECT_EQ(number_value(L"-.5"), -0.5);
}

TEST(TextEdges, SignsAndPointsAloneAreNoNumbers) {
  for (const wchar_t* text : {L"-", L"+", L".", L"-.", L"--1", L" ", L"1-"}) {
    EXPECT_FALSE(whole_text_number(text)) << text;
    EXPECT_FALSE(twips_value(text)) << text;
  }
  EXPECT_EQ(volume_value(L"-"), 50);
  EXPECT_EQ(volume_value(L"."), 50);
  EXPECT_EQ(whole_text_number(L"\t7. \t"), 7.0);
}

TEST(TextEdges, TwipsReachAsFarAsAnyScreen) {
  EXPECT_EQ(twips_value(L"2000000"), 2000000);
  EXPECT_EQ(twips_value(L"-2000000"), -2000000);
  EXPECT_FALSE(twips_value(L"2000000.1"));
  EXPECT_FALSE(twips_value(L"-2000001"));
}

TEST(TextEdges, ReplacesWhateverItsCase) {
  EXPECT_EQ(replace_ignoring_case(L"x*.ORBh*y*.orbH*", L"*.Orbh*", L"1"), L"x1y1");
  EXPECT_EQ(replace_ignoring_case(L"aaa", L"aa", L"b"), L"ba");
  EXPECT_EQ(replace_ignoring_case(L"abc", L"x", L"y"), L"abc");
  EXPECT_EQ(replace_ignoring_case(L"a", L"ab", L"y"), L"a");
  EXPECT_EQ(replace_ignoring_case(L"a..b", L"..", L""), L"ab");
  EXPECT_EQ(replace_ignoring_case(L"", L"a", L"y"), L"");
}

} // namespace
} // namespace lumotune::base
