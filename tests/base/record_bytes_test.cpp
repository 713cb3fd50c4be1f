// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/record_bytes.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace lumotune::base {
namespace {

std::vector<std::string_view> fields(std::string_view record) {
  std::vector<std::string_view> all;
  while (!record.empty())
    all.push_back(take_field(record));
  return all;
}

TEST(RecordBytes, FieldsAreSeparatedByTheWholeDelimiter) {
  using List = std::vector<std::string_view>;
  EXPECT_EQ(fields("a/@/b/@/c"), (List{"a", "b", "c"}));
  EXPECT_EQ(fields("/@//@/c"), (List{"", "", "c"}));
  EXPECT_EQ(fields("a/@/"), (List{"a"}));
  EXPECT_EQ(fields("/@/a"), (List{"", "a"}));
  EXPECT_EQ(fields("/@/@/a"), (List{"", "@/a"})) << "a slash belongs to one delimiter only";
}

TEST(RecordBytes, PartsOfADelimiterAreText) {
  for (const std::string_view text :
       {"a@/b", "a/@b", "a@b", "a/@", "@/a", "/a", "@", "a//@", "x/y@z/", "/@", "A/A/b", "/@@/", "x@y/A/z"})
    EXPECT_EQ(fields(text), (std::vector<std::string_view>{text}));
}

TEST(RecordBytes, AreCountedFromZero) {
  EXPECT_EQ(record_field("a/@/b/@/c", 0), "a");
  EXPECT_EQ(record_field("a/@/b/@/c", 2), "c");
  EXPECT_EQ(record_field("a/@/b/@/c", 3), "");
  EXPECT_EQ(record_field("", 0), "");
  EXPECT_EQ(record_rest("a/@/b/@/c", 0), "a/@/b/@/c");
  EXPECT_EQ(record_rest("a/@/b/@/c", 1), "b/@/c");
  EXPECT_EQ(record_rest("a/@/b/@/c", 2), "c");
  EXPECT_EQ(record_rest("a/@/b/@/c", 9), "");
}

} // namespace
} // namespace lumotune::base
