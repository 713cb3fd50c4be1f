// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/skin_menu.h"

#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(SkinMenuTest, ListsTheSkinsAndChecksTheCurrentOne) {
  SkinWorld w;
  menus::SkinMenu skin_menu({w.folder, w.menu_tree});
  const auto rows = [&] {
    std::vector<std::wstring> all;
    for (const auto& item : w.menu_tree.item(L"LT_Menu_Skins").children)
      all.push_back(item.caption + (item.checked ? L"!" : L""));
    return all;
  };
  (void)w.files.remove(w.path(L"Orb_Data\\skins\\Lumo.skin"));
  skin_menu.NactiSeznamSkinu(L"");
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"..."}));
  w.description(L"Dark", "");
  w.description(L"Darkness", "");
  w.description(L"Modrá", "");
  skin_menu.NactiSeznamSkinu(L"dARK");
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"Dark!", L"Darkness", L"Modrá"}));
}

} // namespace
} // namespace lumotune::test
