// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/skin_menu.h"

#include "base/text.h"

namespace lumotune::menus {

void SkinMenu::NactiSeznamSkinu(MenuTree& tree, const std::wstring& current_skin) const {
  std::vector<platform::MenuItem> skins;
  for (const std::wstring& file : folder_.files().list(folder_.data(L"Skins"), L"*.skin")) {
    constexpr std::size_t ending = 5; // ".skin"
    if (file.size() <= ending)
      continue;
    platform::MenuItem skin;
    skin.caption = file.substr(0, file.size() - ending);
    skin.checked = base::equal_ignoring_case(skin.caption, current_skin);
    skins.push_back(std::move(skin));
  }
  tree.item(L"LT_Menu_Skins_SKIN").enabled = false; // the "..." of a folder without skins
  tree.set_elements(L"LT_Menu_Skins_SKIN", std::move(skins));
}

} // namespace lumotune::menus
