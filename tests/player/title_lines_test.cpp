// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/files.h"
#include "player/title_lines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumotune::player {
namespace {

using Titles = std::vector<std::wstring>;

struct TitleLinesTest : testing::Test {
  platform::memory::Codec codec;
  [[nodiscard]] TitleLines lines(std::string_view bytes = "") const { return {bytes, codec}; }
};

TEST_F(TitleLinesTest, ANewFileBeginsWithItsSwitch) {
  TitleLines fresh = lines();
  EXPECT_FALSE(fresh.off());
  EXPECT_EQ(fresh.bytes(), "zapisovat:ano\r\n");
  fresh.add({L"1. 2. 2024 3:04:05", L"Rádio", L"Jaromír Nohavica - Kometa"});
  EXPECT_EQ(fresh.bytes(), "zapisovat:ano\r\n1. 2. 2024 3:04:05 | R\xe1"
                           "dio | Jarom\xedr Nohavica - Kometa\r\n");
}

TEST_F(TitleLinesTest, TheListenersSwitchHoldsHoweverItIsWritten) {
  for (const char* text :
       {"zapisovat:ne", "Zapisovat: NE \r\n", "a | b | c\r\n\tzapisovat:ne", "zapisovat:ano\nzapisovat:ne"})
    EXPECT_TRUE(lines(text).off()) << text;
  for (const char* text : {"", "zapisovat:ano", "zapisovat:", "zapisovat:nevim", "1 | a | zapisovat:ne"})
    EXPECT_FALSE(lines(text).off()) << text;
  EXPECT_EQ(lines("a | b | c\r\nzapisovat: Ano\r\n").bytes(), "zapisovat: Ano\r\na | b | c\r\n")
      << "it stays as written";
}

TEST_F(TitleLinesTest, ATitleIsOneLineWhateverTheStationSends) {
  TitleLines fresh = lines();
  fresh.add({L"1\r\n2", L"R\n | x", std::wstring(L"a\r\nzapisovat:ne\0\x1b[31m\x85\x2028 b | c \x202e", 31)});
  const std::string bytes = fresh.bytes();
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 2);
  EXPECT_FALSE(lines(bytes).off());
  EXPECT_EQ(lines(bytes).last(5, 500).size(), 1U);
  for (const char byte : bytes.substr(15, bytes.size() - 17))
    EXPECT_TRUE(static_cast<unsigned char>(byte) >= ' ' && byte != '\x85') << testing::PrintToString(bytes);
}

TEST_F(TitleLinesTest, EachPartIsCut) {
  TitleLines fresh = lines();
  fresh.add({std::wstring(1000, L'1'), std::wstring(1000, L'r'), std::wstring(1000, L't')});
  EXPECT_EQ(fresh.bytes().size(),
            15U + TitleLines::max_when + 3 + TitleLines::max_station + 3 + TitleLines::max_title + 2);
}

TEST_F(TitleLinesTest, TheLastTwoHundredAreKept) {
  TitleLines fresh = lines();
  for (int i = 1; i <= 250; ++i)
    fresh.add({L"1", L"r", std::to_wstring(i)});
  const TitleLines again = lines(fresh.bytes());
  const Titles all = again.last(1000, 100);
  ASSERT_EQ(all.size(), TitleLines::max_titles);
  EXPECT_EQ(all.front(), L"r | 250");
  EXPECT_EQ(all.back(), L"r | 51");
}

TEST_F(TitleLinesTest, TheSameTitleAgainIsLeftOut) {
  TitleLines fresh = lines();
  fresh.add({L"1", L"r", L"\x4e2d a"});
  fresh.add({L"2", L"r", L"\x4e2d a"});
  EXPECT_EQ(fresh.last(5, 100).size(), 1U) << "also one that the code page lacks letters for";
  fresh.add({L"3", L"s", L"\x4e2d a"});
  fresh.add({L"4", L"r", L"\x4e2d a"});
  EXPECT_EQ(fresh.last(5, 100).size(), 3U);
}

TEST_F(TitleLinesTest, TheLastOnesAreShownNewestFirstAndCut) {
  const TitleLines kept = lines("zapisovat:ano\r\n1 | r | a\r\n2 | r | b\r\n\r\nbez casu\r\n3 | s | ccccc\r\n");
  EXPECT_EQ(kept.last(3, 6), (Titles{L"s | cc...", L"bez ca...", L"r | b"}));
  EXPECT_EQ(kept.last(0, 6), Titles());
}

} // namespace
} // namespace lumotune::player
