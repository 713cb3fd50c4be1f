// SPDX-License-Identifier: LGPL-2.1-or-later
// Titles at the borders of what counts: letters of keys, digits and lengths of references, ranges of control
// characters, the cut of a long text.
#include "platform/media/title.h"
#include "platform/media/wide.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::media {
namespace {

std::string shown(const std::string& bytes) {
  return to_utf8(readable_text(bytes));
}

std::string utf8(char32_t character) {
  std::wstring text;
  append_character(text, character);
  return to_utf8(text);
}

TEST(IcyTitle, EndsBeforeAKeyOfLettersAlone) {
  for (const char letter : {'A', 'Z', 'a', 'z'})
    EXPECT_EQ(icy_stream_title("StreamTitle='x';" + std::string(1, letter) + "='y';"), "x") << letter;
  for (const std::string key : {"@", "[", "`", "{", "1", "ž", ""})
    EXPECT_EQ(icy_stream_title("StreamTitle='x';" + key + "='y';"), "x';" + key + "='y") << key;
  EXPECT_EQ(icy_stream_title("='y';"), "") << "no key, so no block of other keys";
  EXPECT_EQ(icy_stream_title("A='y';"), std::nullopt);
}

TEST(ReadableText, TakesEveryDigitOfAReference) {
  EXPECT_EQ(shown("&#99;&#70;&#0081;"), "cFQ");
  EXPECT_EQ(shown("&#xaf;&#xAF;&#Xaf;&#x7a;&#x4f;"), "¯¯¯zO");
  EXPECT_EQ(shown("a&#9;b&nbsp;c"), "a b c");
  for (const char* text :
       {"&#1:;", "&#1/;", "&#x1g;", "&#x1G;", "&#x1@;", "&#x1`;", "&#1a;", "&#1F;", "&#af;", "&12;", "&x1;"})
    EXPECT_EQ(shown(text), text);
}

TEST(ReadableText, TakesReferencesUpToTheLastCharacter) {
  EXPECT_EQ(shown("&#1114111;&#x10FFFF;"), utf8(0x10ffff) + utf8(0x10ffff));
  EXPECT_EQ(shown("&#xD7FF;&#xE000;"), utf8(0xd7ff) + utf8(0xe000));
  for (const char* text : {"&#xDFFF;", "&#x110000;", "&#x0000041;", "&#00000065;"})
    EXPECT_EQ(shown(text), text) << "no character, or longer than any needs to be";
}

TEST(ReadableText, KnowsTheBordersOfControlCharacters) {
  for (const char32_t control : {0x1, 0x1f, 0x7f, 0x9f, 0x2028, 0x2029, 0x202a, 0x202e, 0x2066, 0x2069})
    EXPECT_EQ(shown("a" + utf8(control) + "b"), "a b") << std::hex << static_cast<unsigned>(control);
  for (const char32_t other : {0x21, 0x7e, 0xa0, 0x2027, 0x202f, 0x2065, 0x206a})
    EXPECT_EQ(shown("a" + utf8(other) + "b"), "a" + utf8(other) + "b") << std::hex << static_cast<unsigned>(other);
}

// One broken character at the end would make all of it a text in 1250.
TEST(ReadableText, IsCutBetweenCharacters) {
  constexpr std::size_t most = 16 * 1024;
  for (const std::string character : {"a", "ř", "♫", "🎵"}) {
    for (std::size_t within = 0; within <= character.size(); ++within) {
      const std::string text = "ž" + std::string(most - 2 - within, ' ') + character + character;
      EXPECT_EQ(shown(text), within == character.size() ? "ž " + character : "ž") << character << within;
    }
  }
  EXPECT_EQ(shown("ž" + std::string(most - 3, ' ') + "ř"), "ž") << "one byte too long";
  EXPECT_EQ(shown("ž" + std::string(most - 4, ' ') + "ř"), "ž ř");
}

} // namespace
} // namespace lumotune::media
