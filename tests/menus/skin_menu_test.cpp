// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/skin_menu.h"

#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(SkinMenuTest, ListsTheSkinsAndChecksTheCurrentOne) {
  SkinWorld w;
  const menus::SkinMenu skin_menu(w.folder);
  const auto rows = [&](const std::wstring& current) {
    menus::MenuTree tree;
    skin_menu.NactiSeznamSkinu(tree, current);
    std::vector<std::wstring> all;
    for (const auto& item : tree.below(L"LT_Menu_Skins"))
      all.push_back(item.name + L" " + item.caption + (item.checked ? L"!" : L"") + (item.enabled ? L"" : L" (grey)"));
    return all;
  };
  (void)w.files.remove(w.path(L"Orb_Data\\skins\\Lumo.skin"));
  EXPECT_EQ(rows(L""), (std::vector<std::wstring>{L"LT_Menu_Skins_SKIN ... (grey)"}));
  w.description(L"Dark", "");
  w.description(L"-", "");
  w.description(L"Modrá", "");
  EXPECT_EQ(rows(L"dARK"), (std::vector<std::wstring>{L"LT_Menu_Skins_SKIN(0) -", L"LT_Menu_Skins_SKIN(1) Dark!",
                                                      L"LT_Menu_Skins_SKIN(2) Modrá"}));
}

} // namespace
} // namespace lumotune::test
