// SPDX-License-Identifier: LGPL-2.1-or-later
// The pop-up menus of the hidden window `Menus` as a tree of data: names, captions, order, separators, marks.
#pragma once

#include "platform/popup_menus.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

// The element array of installed skins.
inline constexpr const wchar_t* skin_array = L"LT_Menu_Skins_SKIN";

// User-interface thread.
class MenuTree {
public:
  MenuTree(); // as designed: nothing checked, and no skin known

  [[nodiscard]] const std::vector<platform::MenuItem>& top_level() const { return top_level_; }
  // The item of that name, wherever it stands; there must be one. Valid until elements of the skin array come or go.
  [[nodiscard]] platform::MenuItem& item(std::wstring_view name);

  // The skin array: element 0 always exists and is "..." while no skin is known, which cannot be chosen.
  void unload_skins();
  void set_skin(std::size_t index, const std::wstring& caption, bool checked); // index: at most the next free one

private:
  std::vector<platform::MenuItem> top_level_;
};

} // namespace lumotune::base
