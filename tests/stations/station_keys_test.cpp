// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_keys.h"

#include "tests/support/base_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::test {
namespace {

// Rows of identifiers, and how often the index had to read one of them.
struct Keys {
  BaseWorld w;
  base::CodePageFold fold{w.codec};
  std::vector<std::string> ids;
  std::size_t read = 0;
  stations::StationKeys index{fold, [this](std::size_t row) {
                                ++read;
                                return std::string_view(ids.at(row - 1));
                              }};

  bool add(const std::string& id) {
    ids.push_back(id);
    return index.add(ids.size(), id);
  }
};

std::string numbered(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(6 - std::min<std::size_t>(6, digits.size()), '0') + digits;
}

TEST(StationKeys, FindsIdentifiersOfEveryLength) {
  Keys keys;
  std::string id;
  for (std::size_t length = 1; length <= 20; ++length)
    ASSERT_TRUE(keys.add(id += static_cast<char>('A' + length))) << id;
  for (std::size_t row = 1; row <= keys.ids.size(); ++row)
    EXPECT_EQ(keys.index.find(keys.ids[row - 1]), row);
  EXPECT_EQ(keys.index.find("B1"), 0U);
  EXPECT_EQ(keys.index.find(id + "x"), 0U);
}

// At each place of a word of eight bytes, and in the words that follow.
TEST(StationKeys, IgnoresTheCaseOfEveryLetter) {
  for (std::size_t length = 1; length <= 18; ++length) {
    Keys keys;
    ASSERT_TRUE(keys.add(std::string(length, 'z')));
    for (std::size_t at = 0; at < length; ++at) {
      std::string other(length, 'z');
      other[at] = 'Z';
      EXPECT_EQ(keys.index.find(other), 1U) << other;
      EXPECT_FALSE(keys.add(other));
      other[at] = 'y';
      EXPECT_EQ(keys.index.find(other), 0U) << other;
    }
  }
  Keys keys;
  ASSERT_TRUE(keys.add("\x8e"
                       "abc\xc1")); // Ž and Á in 1250
  EXPECT_EQ(keys.index.find("\x9e"
                            "ABC\xe1"),
            1U);
  EXPECT_EQ(keys.index.find("\x9e"
                            "ABCa"),
            0U);
}

TEST(StationKeys, KeepsTheFirstRowOfAnIdentifier) {
  Keys keys;
  EXPECT_TRUE(keys.add("RADIO1"));
  EXPECT_FALSE(keys.add("radio1"));
  EXPECT_EQ(keys.index.find("Radio1"), 1U);
}

TEST(StationKeys, GrowsAndForgets) {
  constexpr std::size_t count = 20'000; // some times more than it begins with
  Keys keys;
  for (const bool reserved : {false, true}) {
    keys.index.clear();
    keys.ids.clear();
    EXPECT_EQ(keys.index.find(numbered(1)), 0U);
    if (reserved)
      keys.index.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_TRUE(keys.add(numbered(i)));
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_EQ(keys.index.find(numbered(i)), i + 1);
    EXPECT_EQ(keys.index.find(numbered(count)), 0U);
  }
}

// Reading a row costs a walk through the list's text.
TEST(StationKeys, RoomThatWasReservedReadsNoRowAgain) {
  constexpr std::size_t count = 20'000;
  Keys keys;
  (void)keys.add("before");
  keys.index.reserve(count);
  const std::size_t read = keys.read;
  EXPECT_EQ(read, 1U) << "the one that had to move";
  keys.index.reserve(count);
  keys.index.reserve(1);
  EXPECT_EQ(keys.read, read);
}

// A row is read where a slot bears the tag that is looked for, which for another identifier is one in 128. Identifiers
// that crowd together in neighbouring slots, or share tags, would have many more read.
TEST(StationKeys, IdentifiersOfAnyShapeAreSpread) {
  const std::vector<std::string (*)(std::size_t)> shapes = {
      numbered, [](std::size_t i) { return "R" + numbered(i); }, [](std::size_t i) { return numbered(i) + "abcdef"; },
      [](std::size_t i) { return "radio" + std::string(i % 97, '.') + numbered(i); },
      [](std::size_t i) {
        constexpr std::string_view signs = "0123456789abcdefghijklmnopqrstuvwxyz";
        return std::string({signs[i % 36], signs[i / 36 % 36], signs[i / 36 / 36]});
      }};
  constexpr std::size_t count = 32'000;
  for (const auto& shape : shapes) {
    Keys keys;
    keys.index.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_TRUE(keys.add(shape(i)));
    EXPECT_LT(keys.read, count / 50) << shape(0);
    keys.read = 0;
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_EQ(keys.index.find(shape(i)), i + 1);
    EXPECT_LT(keys.read, count + count / 50) << shape(0);
  }
}

} // namespace
} // namespace lumotune::test
