// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/title.h"
#include "platform/media/wide.h"

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::string_view_literals;

TEST(IcyTitle, EndsAtTheClosingMarkOnly) {
  EXPECT_EQ(icy_stream_title("StreamTitle='Artist - Song';"), "Artist - Song");
  EXPECT_EQ(icy_stream_title("StreamTitle='a';b';"), "a';b");
  EXPECT_EQ(icy_stream_title("StreamTitle='Rock'n'roll';StreamUrl='http://x/';"), "Rock'n'roll");
  EXPECT_EQ(icy_stream_title("StreamTitle='x';';StreamUrl='';"), "x';");
}

TEST(IcyTitle, IsFoundBesideOtherKeysAndPadding) {
  EXPECT_EQ(icy_stream_title("StreamUrl='http://x/';StreamTitle='y';"), "y");
  EXPECT_EQ(icy_stream_title("StreamTitle='y';\0\0\0\0"sv), "y");
  EXPECT_EQ(icy_stream_title("StreamTitle='';"), "");
}

TEST(IcyTitle, IsNothingInABlockOfOtherKeys) {
  EXPECT_EQ(icy_stream_title("StreamUrl='http://x/';"), std::nullopt);
  EXPECT_EQ(icy_stream_title("StreamUrl='http://x/';\0\0"sv), std::nullopt);
}

// A block that cannot be read announces another song all the same.
TEST(IcyTitle, IsEmptyInABlockThatCannotBeRead) {
  for (const std::string_view block :
       {""sv, "\0S\0t\0r"sv, "S\0t\0r"sv, "S"sv, "\xff\xfeS"sv, "StreamTi"sv, "StreamTitle="sv,
        "StreamTitle='never closed"sv, "StreamTitle='\xff\xfeP"sv, "StreamTitle='closed'"sv})
    EXPECT_EQ(icy_stream_title(block), "") << block;
}

TEST(ReadableText, LeavesUtf16Empty) {
  EXPECT_EQ(readable_text("\xff\xfe\x1f\x04\x40\x04"), L"");
  EXPECT_EQ(readable_text("\xfe\xff\x04\x1f\x04\x40"), L"");
  EXPECT_EQ(readable_text("\xff\xf8"), L"˙ř") << "half a mark is a text in 1250";
}

TEST(ReadableText, TakesStrictUtf8ElseWindows1250) {
  EXPECT_EQ(readable_text("P\xc5\x99\xc3\xad\xc5\xa1"
                          "era"),
            L"Příšera");
  EXPECT_EQ(readable_text("P\xf8\xed\x9a"
                          "era"),
            L"Příšera");
  EXPECT_EQ(readable_text("\x8e"
                          "lu\x9dou\xe8k\xfd k\xf9\xf2"),
            L"Žluťoučký kůň");
}

// Each would be let through by a lenient reader.
TEST(ReadableText, DoesNotTakeBrokenUtf8ForUtf8) {
  EXPECT_EQ(from_utf8("\xc0\xaf"), std::nullopt);         // overlong
  EXPECT_EQ(from_utf8("\xe0\x80\xaf"), std::nullopt);     // overlong
  EXPECT_EQ(from_utf8("\xed\xa0\x80"), std::nullopt);     // half of a pair
  EXPECT_EQ(from_utf8("\xf4\x90\x80\x80"), std::nullopt); // past the last character
  EXPECT_EQ(from_utf8("\xc5"), std::nullopt);             // cut
  EXPECT_EQ(from_utf8("\xf0\x9f\x8e"), std::nullopt);     // cut
  EXPECT_EQ(from_utf8("\x80"), std::nullopt);             // nothing begins so
  EXPECT_EQ(from_utf8("\xc5\x99"), L"ř");
  EXPECT_EQ(readable_text("\xc5"), L"Ĺ"); // one byte of 1250
}

TEST(ReadableText, ResolvesCharacterReferencesOnce) {
  EXPECT_EQ(readable_text("Dvo&#345;&#xE1;k"), L"Dvořák");
  EXPECT_EQ(readable_text("a &amp; b &lt;c&gt; &quot;d&quot; &apos;e&apos;"), L"a & b <c> \"d\" 'e'");
  EXPECT_EQ(readable_text("&amp;#345;"), L"&#345;");
}

TEST(ReadableText, LeavesReferencesThatMeanNothing) {
  for (const char* text :
       {"AC&DC", "&#;", "&#x;", "&#0;", "&#xD800;", "&#1114112;", "&#99999999999;", "&unknown;", "&#12", "&"})
    EXPECT_EQ(to_utf8(readable_text(text)), text);
}

TEST(ReadableText, TurnsControlCharactersAndRunsOfBlanksToOneBlank) {
  EXPECT_EQ(readable_text("  a\r\n\tb\x1b  c\x7f "), L"a b c");
  EXPECT_EQ(readable_text("a&#10;b&#8238;c"), L"a b c"); // also those that come as references
  EXPECT_EQ(readable_text("\x01\x02"), L"");
}

TEST(ReadableText, HasAnEnd) {
  EXPECT_EQ(readable_text(std::string(100000, 'x')).size(), 500U);
  // Tens of megabytes of what looks like the start of a reference take no time.
  EXPECT_EQ(readable_text(std::string(50000000, '&')).size(), 500U);
  // Where the cut falls into a character, what is left is UTF-8 all the same.
  for (const char* start : {"", "x", "xx"}) {
    std::string long_text = start;
    while (long_text.size() < 60000)
      long_text += "\xe2\x99\xab          "; // a note, and blanks that count as one
    EXPECT_EQ(readable_text(long_text).find(L'â'), std::wstring::npos);
  }
}

TEST(Wide, GoesToUtf8AndBack) {
  const std::wstring text = L"Žluťoučký kůň ♫";
  EXPECT_EQ(from_utf8(to_utf8(text)), text);
  std::wstring note;
  append_character(note, 0x1f3b5);
  EXPECT_EQ(to_utf8(note), "\xf0\x9f\x8e\xb5");
  EXPECT_EQ(to_utf8(std::wstring(1, static_cast<wchar_t>(0xd800))), "\xef\xbf\xbd");
}

} // namespace
} // namespace lumotune::media
