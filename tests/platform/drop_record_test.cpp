// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/drop_record.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::platform {
namespace {

using Paths = std::vector<std::wstring>;

std::string utf16(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t c : text) {
    bytes += static_cast<char>(c & 0xff);
    bytes += static_cast<char>((c >> 8) & 0xff);
  }
  return bytes;
}

std::string number(std::size_t value) {
  return {static_cast<char>(value & 0xff), static_cast<char>((value >> 8) & 0xff),
          static_cast<char>((value >> 16) & 0xff), static_cast<char>((value >> 24) & 0xff)};
}

std::string header(std::size_t list = 20, std::size_t wide = 1) {
  return number(list) + std::string(12, 'x') + number(wide);
}

// The zeros that the literal ends with count.
std::string record(const std::wstring& list) {
  return header() + utf16(list);
}

TEST(DropRecord, HoldsPathsEachEndedByAZero) {
  EXPECT_EQ(paths_of_drop_record(record(std::wstring(L"C:\\r\u00e1dio.m3u\0D:\\b.pls\0\0", 24))),
            (Paths{L"C:\\r\u00e1dio.m3u", L"D:\\b.pls"}));
  EXPECT_EQ(paths_of_drop_record(header(22) + "??" + utf16(std::wstring(L"a\0\0", 3))), Paths{L"a"})
      << "the list lies where the header says";
  EXPECT_EQ(paths_of_drop_record(record(std::wstring(L"a\0\0zbytek", 9))), Paths{L"a"});
}

TEST(DropRecord, IsNotReadPastItsEnd) {
  for (const std::string& bytes :
       {std::string(), std::string(19, '\0'), header(), header(19) + "a", header(21), header(0xffffffff) + utf16(L"a"),
        record(L"a"), record(std::wstring(L"a\0", 2)), record(std::wstring(L"\0", 1)), record(std::wstring(L"a\0b", 3)),
        record(std::wstring(L"a\0", 2)) + std::string(1, '\0')})
    EXPECT_FALSE(paths_of_drop_record(bytes).has_value()) << testing::PrintToString(bytes);
}

TEST(DropRecord, OfAnotherEncodingIsRefused) {
  EXPECT_FALSE(paths_of_drop_record(header(20, 0) + std::string("C:\\a\0\0\0\0", 8)).has_value());
}

TEST(DropRecord, WithTooManyOrTooLongPathsIsRefused) {
  std::wstring list;
  for (std::size_t i = 0; i < Drop::max_paths; ++i)
    list += std::wstring(L"a\0", 2);
  EXPECT_EQ(paths_of_drop_record(record(list + L'\0')).value_or(Paths()).size(), Drop::max_paths);
  EXPECT_FALSE(paths_of_drop_record(record(list + std::wstring(L"a\0\0", 3))).has_value());
  const std::wstring end(2, L'\0');
  EXPECT_TRUE(paths_of_drop_record(record(std::wstring(Drop::max_path, L'a') + end)).has_value());
  EXPECT_FALSE(paths_of_drop_record(record(std::wstring(Drop::max_path + 1, L'a') + end)).has_value());
}

TEST(DropRecord, OfATextEndsAtItsZeroOrItsEnd) {
  EXPECT_EQ(text_of_drop_record(utf16(std::wstring(L"http://\u00e1\0x", 10))), L"http://\u00e1");
  EXPECT_EQ(text_of_drop_record(utf16(L"http://a")), L"http://a");
  EXPECT_EQ(text_of_drop_record(utf16(L"a") + "b"), L"ab") << "half a character";
  EXPECT_FALSE(text_of_drop_record("").has_value());
  EXPECT_FALSE(text_of_drop_record(std::string(4, '\0')).has_value());
  EXPECT_EQ(text_of_drop_record(utf16(std::wstring(Drop::max_text, L'a'))).value_or(L"").size(), Drop::max_text);
  EXPECT_FALSE(text_of_drop_record(utf16(std::wstring(Drop::max_text + 1, L'a'))).has_value());
}

TEST(DropRecord, AWindowTakesFilesOrATextWithinTheLimits) {
  EXPECT_TRUE(can_be_dropped({{L"a"}, L"", nullptr}));
  EXPECT_TRUE(can_be_dropped({{}, L"a", nullptr}));
  EXPECT_FALSE(can_be_dropped({{}, L"", nullptr}));
  EXPECT_FALSE(can_be_dropped({{L"a"}, L"a", nullptr}));
  EXPECT_FALSE(can_be_dropped({{L"a", L""}, L"", nullptr}));
  EXPECT_FALSE(can_be_dropped({Paths(Drop::max_paths + 1, L"a"), L"", nullptr}));
  EXPECT_FALSE(can_be_dropped({{std::wstring(Drop::max_path + 1, L'a')}, L"", nullptr}));
  EXPECT_FALSE(can_be_dropped({{}, std::wstring(Drop::max_text + 1, L'a'), nullptr}));
}

} // namespace
} // namespace lumotune::platform
