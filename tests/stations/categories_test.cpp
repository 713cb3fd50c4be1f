// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/files.h"
#include "stations/categories.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::test {
namespace {

const platform::memory::Codec codec;

// "key|parent|name" for each node.
std::wstring nodes(const std::string& bytes) {
  std::wstring text;
  for (const auto& node : stations::read_categories(bytes, codec))
    text += node.key + L"|" + node.parent_key + L"|" + node.name + L"\n";
  return text;
}

TEST(Categories, RootsAndTheirChildren) {
  EXPECT_EQ(nodes("new//100000/@/V\x9a"
                  "echna r\xe1"
                  "dia\r\nnew//100001/@/Podle zem\xed\r\nadd//100001cz/@/\xc8"
                  "esko\r\n\r\n"),
            L"a100000||Všechna rádia\na100001||Podle zemí\na100001cz|a100001|Česko\n");
}

TEST(Categories, FiveThousandAreTheMost) {
  std::string bytes;
  for (int i = 0; i < 5001; ++i)
    bytes += "new//" + std::to_string(100000 + i) + "/@/x\r\n";
  EXPECT_EQ(stations::read_categories(bytes, codec).size(), 5000U);
}

TEST(Categories, ALongIdentifierIsNoneAndALongNameIsCut) {
  const std::string id(stations::max_category_id, '1');
  const std::string name(stations::max_category_name, 'x');
  EXPECT_EQ(stations::read_categories("new//" + id + "1/@/x\r\n", codec).size(), 0U);
  const auto nodes = stations::read_categories("new//" + id + "/@/" + name + "y\r\n", codec);
  ASSERT_EQ(nodes.size(), 1U);
  EXPECT_EQ(nodes[0].name.size(), name.size());
}

TEST(Categories, PrefixesIgnoreLetterCase) {
  EXPECT_EQ(nodes("NEW//100001/@/A\nAdd//100001x/@/B\n"), L"a100001||A\na100001x|a100001|B\n");
}

TEST(Categories, TheNameIsEverythingAfterTheFirstDelimiter) {
  EXPECT_EQ(nodes("new//100001/@/A/@/B\n"), L"a100001||A/@/B\n");
  EXPECT_EQ(nodes("new//100001/@/\n"), L"a100001||\n");
}

TEST(Categories, OtherLinesAreIgnored) {
  EXPECT_EQ(nodes("\r\nnew/100001/@/A\r\n new//100001/@/A\r\ndel//100001/@/A\r\nRADIO1/@/B\r\n"), L"");
  EXPECT_EQ(nodes("new//100001\r\nadd//100001ab/@\r\nnew//"), L"") << "torn before their names";
  EXPECT_EQ(nodes(""), L"");
}

TEST(Categories, IdentifiersOfAnyLengthAreTaken) {
  EXPECT_EQ(nodes("new///@/Bez\nnew//12/@/Kratka\nadd//12/@/Dite\nnew//1234567890/@/Dlouha\n"),
            L"a||Bez\na12||Kratka\na12|a12|Dite\na1234567890||Dlouha\n");
}

TEST(Categories, HostileFilesEnd) {
  const std::string huge(1'000'000, 'z');
  EXPECT_EQ(nodes("new//100001/@/" + huge + "\r\n" + huge + "\r\n" + std::string(1000, '\0')).size(),
            9U + stations::max_category_name + 1U);
}

TEST(Categories, ANodeShowsItsCategory) {
  EXPECT_EQ(stations::category_of_node(L"a100001"), L"100001");
  EXPECT_EQ(stations::category_of_node(L"a100001cz"), L"100001cz");
  EXPECT_EQ(stations::category_of_node(L"a100000"), L"100000") << "every station";
  EXPECT_EQ(stations::category_of_node(L"a100000rock"), L"xrock");
  EXPECT_EQ(stations::category_of_node(L"a10000"), L"10000");
  EXPECT_EQ(stations::category_of_node(L"a"), L"");
  EXPECT_EQ(stations::category_of_node(L""), L"");
}

} // namespace
} // namespace lumotune::test
