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

  // Marks and captions that follow the settings.
  void check_auto_start(bool on) { item(L"LT_Menu_Nastaveni_AutoStart").checked = on; }
  void check_on_top(bool on) { item(L"LT_Menu_Nastaveni_OnTop").checked = on; }
  void check_volume(int level); // Volume0..Volume5: that one checked, the others not
  void set_tune_caption(const std::wstring& caption) { item(L"LT_MenuRadia_Naladit").caption = caption; }

  // The skin array: element 0 always exists and is "..." while no skin is known, which cannot be chosen.
  void unload_skins();
  void set_skin(std::size_t index, const std::wstring& caption, bool checked); // index: at most the next free one

private:
  std::vector<platform::MenuItem> top_level_;
};

} // namespace lumotune::base
