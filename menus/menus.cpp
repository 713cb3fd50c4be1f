// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/menus.h"

#include "base/text.h"
#include "skin/volume_look.h"

#include <array>

namespace lumotune::menus {

using platform::MenuItem;

// The choice is resolved in the tree that was shown, whatever changes while the menu is open. The procedure runs after
// the menu has closed, so it may open menus itself.
void Menus::open(const MenuTree& tree, MenuTree::Name menu, const platform::Control* anchor) {
  const auto chosen = tree.chosen(uses_.popups.pop_up(tree.below(menu), anchor));
  if (chosen && !uses_.loop.quitting())
    chosen->row.act(uses_.commands, chosen->caption);
}

void Menus::open_main() {
  MenuTree tree;
  uses_.skin_menu.NactiSeznamSkinu(tree, uses_.settings.LTskin);
  tree.item(L"LT_Menu_Nastaveni_AutoStart").checked = uses_.settings.LTautoStart == L"1";
  tree.item(L"LT_Menu_Nastaveni_OnTop").checked = uses_.settings.LTTop == L"1";
  open(tree, L"LT_Menu", &uses_.form.Control_Menu);
}

void Menus::open_volume() {
  MenuTree tree;
  mark_volume(tree);
  open(tree, L"LT_Volume", &uses_.form.Control_Volume);
}

void Menus::open_station() {
  MenuTree tree;
  prepare_station(tree);
  open(tree, L"LT_MenuPlRaria", &uses_.form.InfoName);
}

void Menus::open_favourite() {
  MenuTree tree;
  tree.item(L"LT_MenuRadia_Naladit").caption =
      L"Naladit rádio " + uses_.stations.RadioInfo(uses_.favourites.selected_id(), L"name");
  open(tree, L"LT_MenuRadia", &uses_.form.Control_List);
}

void Menus::open_tray() {
  MenuTree tree;
  mark_volume(tree);
  MenuItem& play = tree.item(L"LT_TrayMenu_Play");
  play.caption = uses_.form.PlayTL.text();
  play.enabled = uses_.form.PlayTL.enabled();
  open(tree, L"LT_TrayMenu", nullptr);
}

void Menus::mark_volume(MenuTree& tree) const {
  static constexpr std::array<MenuTree::Name, 6> levels = {L"Volume0", L"Volume1", L"Volume2",
                                                           L"Volume3", L"Volume4", L"Volume5"};
  const int level = skin::volume_level(base::volume_value(uses_.settings.LTvolume));
  tree.item(levels.at(static_cast<std::size_t>(level))).checked = true;
}

void Menus::prepare_station(MenuTree& tree) const {
  static constexpr std::array<MenuTree::Name, 5> qualities = {L"LT_MenuPlRaria_K_1", L"LT_MenuPlRaria_K_2",
                                                              L"LT_MenuPlRaria_K_3", L"LT_MenuPlRaria_K_4",
                                                              L"LT_MenuPlRaria_K_5"};
  const std::wstring& station = uses_.settings.IDlastRadio;
  const std::wstring address = uses_.stations.RadioInfo(station, L"www");
  MenuItem& www = tree.item(L"LT_MenuPlRaria_www");
  www.enabled = !base::trimmed(address).empty();
  if (www.enabled)
    www.caption = address;
  for (std::size_t i = 0; i < qualities.size(); ++i) {
    const std::wstring quality = std::to_wstring(i + 1);
    const std::wstring rate = uses_.stations.RadioInfo(station, L"k" + quality);
    MenuItem& item = tree.item(qualities[i]);
    item.visible = !rate.empty();
    item.caption = rate + L" kbps";
    item.checked = quality == uses_.settings.KvalitaLT;
  }
}

} // namespace lumotune::menus
