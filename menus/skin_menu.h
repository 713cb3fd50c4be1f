// SPDX-License-Identifier: LGPL-2.1-or-later
// The submenu of installed skins.
#pragma once

#include "base/menu_tree.h"
#include "base/program_folder.h"

#include <string>

namespace lumotune::menus {

class SkinMenu {
public:
  struct Uses {
    const base::ProgramFolder& folder;
    base::MenuTree& tree;
  };
  explicit SkinMenu(const Uses& uses) : uses_(uses) {}

  // Rebuilds the submenu from the skin folder, in the file system's order; the current skin is checked, letter case
  // ignored. With no skins element 0 stays as it is. User-interface thread.
  void NactiSeznamSkinu(const std::wstring& current_skin);

private:
  Uses uses_;
};

} // namespace lumotune::menus
