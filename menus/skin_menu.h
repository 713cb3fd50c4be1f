// SPDX-License-Identifier: LGPL-2.1-or-later
// The submenu of installed skins.
#pragma once

#include "base/program_folder.h"
#include "menus/menu_table.h"

#include <string>

namespace lumotune::menus {

class SkinMenu {
public:
  explicit SkinMenu(const base::ProgramFolder& folder) : folder_(folder) {}

  // Fills the submenu from the skin folder, in the file system's order; the current skin is checked, letter case
  // ignored. Without any skin it has one item, "...", which cannot be chosen. User-interface thread.
  void NactiSeznamSkinu(MenuTree& tree, const std::wstring& current_skin) const;

private:
  const base::ProgramFolder& folder_;
};

} // namespace lumotune::menus
