// SPDX-License-Identifier: LGPL-2.1-or-later
// Lines of the settings file by themselves: where one ends, what a value may not do to the next.
#include "base/options_lines.h"

#include "tests/support/base_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using namespace std::string_view_literals;

TEST(OptionsLines, EndWithEitherCharacterOrBoth) {
  const auto split = [](std::string_view bytes) { return base::split_text_lines(bytes); };
  EXPECT_EQ(split("a\r\nb\nc\rd"), (base::TextLines{"a", "b", "c", "d"}));
  EXPECT_EQ(split("a\r\r\nb\n\rc"), (base::TextLines{"a", "", "b", "", "c"}));
  EXPECT_EQ(split("\r\n\r\n"), (base::TextLines{"", ""}));
  EXPECT_EQ(split("a\n\n"), (base::TextLines{"a", ""}));
  EXPECT_EQ(split("ab\r"), (base::TextLines{"ab"}));
  EXPECT_EQ(split("a\nb"), (base::TextLines{"a", "b"}));
  EXPECT_EQ(split("\n"), (base::TextLines{""}));
  EXPECT_EQ(split(""), base::TextLines());
}

TEST(OptionsLines, AMissingLineHasNoValue) {
  const BaseWorld w;
  const base::TextLines lines = {"#000:a:p\xf8\xed", ""};
  EXPECT_EQ(base::line_value(lines, 0, 8, w.codec), L"pří");
  EXPECT_EQ(base::line_value(lines, 0, 10, w.codec), L"í");
  EXPECT_EQ(base::line_value(lines, 0, 11, w.codec), L"");
  EXPECT_EQ(base::line_value(lines, 1, 0, w.codec), L"");
  EXPECT_EQ(base::line_value(lines, 2, 0, w.codec), L"");
}

// The line after it would be another setting's.
TEST(OptionsLines, AValueStaysInItsLine) {
  const BaseWorld w;
  base::Settings settings;
  settings.saved_skin = L"a\rb\nc\r\nd" + std::wstring(1, L'\0') + L"e f";
  base::TextLines lines = option_lines();
  ASSERT_TRUE(base::write_settings(lines, w.codec, settings));
  EXPECT_EQ(lines[21], "#021:LTskin:a b c  d e f");
}

TEST(OptionsLines, EachValueHasItsLine) {
  const BaseWorld w;
  base::Settings settings;
  settings.LTTop = L"1";
  settings.IDlastRadio = L"ABCDEF";
  settings.KvalitaLT = L"4";
  settings.LTautoStart = L"1";
  settings.LTvolume = L"77";
  settings.saved_skin = L"Papír";
  settings.LTpleft = L"-15";
  settings.LTptop = L"30";
  base::TextLines lines = option_lines();
  const base::TextLines before = lines;
  ASSERT_TRUE(base::write_settings(lines, w.codec, settings));
  base::Settings read;
  base::read_settings(lines, w.codec, read);
  EXPECT_EQ(read.LTTop, settings.LTTop);
  EXPECT_EQ(read.IDlastRadio, settings.IDlastRadio);
  EXPECT_EQ(read.KvalitaLT, settings.KvalitaLT);
  EXPECT_EQ(read.LTautoStart, settings.LTautoStart);
  EXPECT_EQ(read.LTvolume, settings.LTvolume);
  EXPECT_EQ(read.LTskin, settings.saved_skin);
  EXPECT_EQ(read.LTpleft, settings.LTpleft);
  EXPECT_EQ(read.LTptop, settings.LTptop);
  for (const std::size_t others : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 10U, 14U, 15U, 16U, 17U, 18U, 19U})
    EXPECT_EQ(lines[others], before[others]) << others;
}

TEST(OptionsLines, AFileThatLacksALineIsNotChanged) {
  const BaseWorld w;
  base::Settings settings;
  settings.LTvolume = L"99";
  base::TextLines lines = option_lines();
  lines.resize(base::options_line_count - 1);
  const base::TextLines before = lines;
  EXPECT_FALSE(base::write_settings(lines, w.codec, settings));
  EXPECT_EQ(lines, before);
  lines.emplace_back("#023:");
  EXPECT_TRUE(base::write_settings(lines, w.codec, settings));
  EXPECT_EQ(lines[20], "#020:LTvolume:99");
}

} // namespace
} // namespace lumotune::test
