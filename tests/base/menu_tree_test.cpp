// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/menu_tree.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using Row = base::MenuRow<std::wstring&, const std::wstring&>;

void note(std::wstring& heard, const std::wstring& caption) {
  heard = caption;
}

struct Table {
  static constexpr auto rows = std::to_array<Row>({
      {0, L"Title", L"Title"},
      {0, L"Menu", L"Menu"},
      {1, L"First", L"První", note},
      {1, L"Line", L"-"},
      {1, L"More", L"Další"},
      {2, L"Deep", L"Hluboká", note},
      {2, L"Array", L"...", note},
      {1, L"Last", L"Poslední", note},
      {0, L"Other", L"Other"},
      {1, L"Only", L"Jediná", note},
  });
};
using Tree = base::MenuTree<Table>;

std::vector<std::wstring> names(const std::vector<platform::MenuItem>& items) {
  std::vector<std::wstring> all;
  for (const platform::MenuItem& item : items)
    all.push_back(item.name);
  return all;
}
using Names = std::vector<std::wstring>;

TEST(MenuTreeTest, RowsBecomeMenusByTheirDepth) {
  const Tree tree;
  EXPECT_EQ(names(tree.all()), (Names{L"Title", L"Menu", L"Other"}));
  EXPECT_EQ(names(tree.below(L"Menu")), (Names{L"First", L"Line", L"More", L"Last"}));
  EXPECT_EQ(names(tree.below(L"Menu")[2].children), (Names{L"Deep", L"Array"}));
  EXPECT_EQ(names(tree.below(L"More")), (Names{L"Deep", L"Array"}));
  EXPECT_EQ(names(tree.below(L"Other")), Names{L"Only"});
  EXPECT_TRUE(tree.below(L"Menu")[1].separator);
  EXPECT_FALSE(tree.below(L"Menu")[0].separator);
}

TEST(MenuTreeTest, AnArrayStandsInThePlaceOfItsRow) {
  Tree tree;
  tree.item(L"Array").enabled = false;
  EXPECT_EQ(names(tree.below(L"More")), (Names{L"Deep", L"Array"}));
  EXPECT_FALSE(tree.below(L"More")[1].enabled);
  platform::MenuItem dash;
  dash.caption = L"-";
  tree.set_elements(L"Array", {dash, dash});
  EXPECT_EQ(names(tree.below(L"More")), (Names{L"Deep", L"Array(0)", L"Array(1)"}));
  EXPECT_FALSE(tree.below(L"More")[1].separator) << "a caption from outside is no design";
  EXPECT_TRUE(tree.below(L"More")[1].enabled);
}

TEST(MenuTreeTest, WhatWasChosenHasItsProcedureAndTheCaptionShown) {
  Tree tree;
  tree.item(L"Deep").caption = L"Dno";
  platform::MenuItem second;
  second.caption = L"Druhá";
  tree.set_elements(L"Array", {{}, second});
  for (const auto& [name, caption] : {std::pair{L"First", L"První"}, {L"Deep", L"Dno"}, {L"Array(1)", L"Druhá"}}) {
    const auto chosen = tree.chosen(name);
    ASSERT_TRUE(chosen) << testing::PrintToString(std::wstring(name));
    std::wstring heard;
    chosen->row.act(heard, chosen->caption);
    EXPECT_EQ(heard, caption);
  }
  for (const wchar_t* name : {L"", L"Title", L"Menu", L"More", L"Line", L"Array", L"Array(2)", L"None"})
    EXPECT_FALSE(tree.chosen(name)) << testing::PrintToString(std::wstring(name));
}

template <std::size_t count>
consteval bool good(const Row (&rows)[count]) {
  return base::well_formed(std::to_array(rows));
}

// A table that is not well-formed does not compile; here each rule is asked on its own.
TEST(MenuTreeTest, ATableHasAProcedureForEachItemThatCanBeChosenAndForNothingElse) {
  static_assert(
      good({{0, L"M", L"M"}, {1, L"A", L"a", note}, {1, L"L", L"-"}, {1, L"S", L"s"}, {2, L"B", L"b", note}}));
  static_assert(!good({{0, L"M", L"M"}, {1, L"A", L"a"}}), "an item without a procedure");
  static_assert(!good({{0, L"M", L"M"}, {1, L"A", L"-", note}}), "a line with one");
  static_assert(!good({{0, L"M", L"M", note}, {1, L"A", L"a", note}}), "a menu with one");
  static_assert(!good({{0, L"M", L"M"}, {1, L"S", L"s", note}, {2, L"A", L"a", note}}), "a submenu with one");
  static_assert(!good({{0, L"M", L"M"}, {1, L"A", L"a", note}, {1, L"A", L"b", note}}), "two of one name");
  static_assert(!good({{0, L"M", L"M"}, {2, L"A", L"a", note}}), "an item below nothing");
  static_assert(!good({{1, L"A", L"a", note}}), "an item of no menu");
  SUCCEED();
}

} // namespace
} // namespace lumotune::test
