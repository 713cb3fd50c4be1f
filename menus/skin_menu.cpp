// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/skin_menu.h"

#include "base/text.h"

namespace lumotune::menus {

void SkinMenu::NactiSeznamSkinu(const std::wstring& current_skin) {
  uses_.tree.unload_skins();
  std::size_t index = 0;
  for (const std::wstring& file : uses_.folder.files().list(uses_.folder.data(L"Skins"), L"*.skin")) {
    constexpr std::size_t ending = 5; // ".skin"
    if (file.size() <= ending)
      continue;
    const std::wstring name = file.substr(0, file.size() - ending);
    uses_.tree.set_skin(index++, name, base::equal_ignoring_case(name, current_skin));
  }
}

} // namespace lumotune::menus
