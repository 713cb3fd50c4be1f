// SPDX-License-Identifier: LGPL-2.1-or-later
// Every control and menu item that the program makes is told in the table of its features.
#include "tests/app/program_world.h"

#include <cwctype>
#include <fstream>
#include <set>
#include <sstream>

namespace lumotune::test {
namespace {

std::set<std::wstring> words_of(const std::wstring& text) {
  std::set<std::wstring> words;
  std::wstring word;
  for (const wchar_t letter : text + L" ") {
    if (letter < 128 && (std::iswalnum(static_cast<std::wint_t>(letter)) != 0 || letter == L'_'))
      word += letter;
    else if (!word.empty())
      words.insert(std::exchange(word, {}));
  }
  return words;
}

// The words of the first cell of each note and feature; a name is plain ASCII, so bytes do.
std::set<std::wstring> words_of_table() {
  std::ifstream table(LUMOTUNE_FEATURES);
  std::wstring told;
  for (std::string line; std::getline(table, line);) {
    std::istringstream cells(line);
    std::string kind;
    std::string first;
    if (std::getline(cells, kind, '\t') && std::getline(cells, first, '\t') && (kind == "note" || kind == "feature"))
      told += std::wstring(first.begin(), first.end()) + L"\n";
  }
  return words_of(told);
}

struct FeaturesTest : ProgramWorld {
  std::set<std::wstring> told = words_of_table();

  void expect_told(const std::vector<std::wstring>& names) {
    for (const std::wstring& name : names)
      EXPECT_TRUE(told.contains(name)) << std::string(name.begin(), name.end()) << " is missing in tests/features.tsv";
  }
  void expect_told(const std::vector<platform::MenuItem>& items) {
    for (const platform::MenuItem& item : items) {
      if (!item.separator)
        expect_told(std::vector<std::wstring>{item.name.substr(0, item.name.find(L'('))});
      expect_told(item.children);
    }
  }
};

TEST_F(FeaturesTest, NameEveryControlOfTheMainWindow) {
  ASSERT_FALSE(window.control_names().empty());
  expect_told(window.control_names());
}

TEST_F(FeaturesTest, NameEveryControlOfTheDirectory) {
  ASSERT_TRUE(program.start());
  program.directory.Naladit();
  ASSERT_NE(framed_windows.last, nullptr);
  const std::vector<std::wstring> names = framed_windows.last->control_names();
  ASSERT_FALSE(names.empty());
  expect_told(names);
}

TEST_F(FeaturesTest, NameEveryItemOfTheMainMenus) {
  const auto items = menus::MenuTree().all();
  ASSERT_FALSE(items.empty());
  expect_told(items);
}

TEST_F(FeaturesTest, NameEveryItemOfTheDirectorysMenu) {
  ASSERT_TRUE(program.start());
  program.directory.Naladit();
  popups.opened.clear();
  ASSERT_TRUE(
      framed_windows.last->find<platform::memory::ListView>(L"ListView1")->user_pick(1, platform::MouseButton::right));
  ASSERT_EQ(popups.opened.size(), 1U);
  ASSERT_NE(platform::memory::find_item(popups.opened.back().items, L"KvalitaInfo"), nullptr);
  expect_told(popups.opened.back().items);
}

} // namespace
} // namespace lumotune::test
