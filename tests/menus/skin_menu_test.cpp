// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/skin_menu.h"

#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(SkinMenuTest, ListsTheSkinsAndChecksTheCurrentOne) {
  struct Menu final : skin::SkinMenuPort {
    void unload_above_0() override { ++unloaded; }
    void set_element(std::size_t index, const std::wstring& caption, bool checked) override {
      rows.push_back(std::to_wstring(index) + caption + (checked ? L"!" : L""));
    }
    int unloaded = 0;
    std::vector<std::wstring> rows;
  } menu;
  SkinWorld w;
  menus::SkinMenu skin_menu({w.files, w.machine});
  skin_menu.menu.bind(menu);
  skin_menu.NactiSeznamSkinu(L"");
  EXPECT_EQ(menu.unloaded, 1);
  EXPECT_TRUE(menu.rows.empty());
  w.description(L"Dark", "");
  w.description(L"Darkness", "");
  w.description(L"Modrá", "");
  skin_menu.NactiSeznamSkinu(L"dARK");
  EXPECT_EQ(menu.rows, (std::vector<std::wstring>{L"0Dark!", L"1Darkness", L"2Modrá"}));
}

} // namespace
} // namespace lumotune::test
