// SPDX-License-Identifier: LGPL-2.1-or-later
#include "menus/menus.h"

#include "base/text.h"

#include <array>

namespace lumotune::menus {
namespace {

using platform::MenuItem;

constexpr std::array<const wchar_t*, 5> qualities = {L"1", L"2", L"3", L"4", L"5"};

const MenuItem* find(const std::vector<MenuItem>& items, const std::wstring& name) {
  for (const MenuItem& item : items) {
    if (item.name == name)
      return &item;
    if (const MenuItem* below = find(item.children, name))
      return below;
  }
  return nullptr;
}

} // namespace

// The menu works on a copy: an event meanwhile may change the tree or prepare it anew, and the user chose by what was
// shown. The item's work begins when the menu is closed, so it may open menus itself.
void Menus::open(std::wstring_view menu, const platform::Control* anchor) {
  const std::vector<MenuItem> shown = uses_.tree.item(menu).children;
  const std::wstring name = uses_.popups.pop_up(shown, anchor);
  const MenuItem* chosen = name.empty() ? nullptr : find(shown, name);
  if (chosen != nullptr && !uses_.loop.quitting())
    uses_.commands.run(chosen->name, chosen->caption);
}

void Menus::open_main() {
  uses_.skin_menu.NactiSeznamSkinu(uses_.settings.LTskin);
  open(L"LT_Menu", &uses_.form.Control_Menu);
}

void Menus::open_volume() {
  open(L"LT_Volume", &uses_.form.Control_Volume);
}

void Menus::open_station() {
  prepare_station();
  open(L"LT_MenuPlRaria", &uses_.form.InfoName);
}

void Menus::open_favourite() {
  uses_.tree.set_tune_caption(L"Naladit rádio " + uses_.stations.RadioInfo(uses_.favourites.selected_id(), L"name"));
  open(L"LT_MenuRadia", &uses_.form.Control_List);
}

void Menus::open_tray() {
  prepare_tray();
  open(L"LT_TrayMenu", nullptr);
}

// A quality that the station lacks keeps its mark: it is not seen.
void Menus::prepare_station() {
  const std::wstring& station = uses_.settings.IDlastRadio;
  const std::wstring address = uses_.stations.RadioInfo(station, L"www");
  MenuItem& www = uses_.tree.item(L"LT_MenuPlRaria_www");
  www.enabled = !base::trimmed(address).empty();
  www.caption = www.enabled ? address : L"Web rádia";
  for (const std::wstring quality : qualities) {
    const std::wstring rate = uses_.stations.RadioInfo(station, L"k" + quality);
    MenuItem& item = uses_.tree.item(L"LT_MenuPlRaria_K_" + quality);
    item.visible = !rate.empty();
    if (item.visible) {
      item.caption = rate + L" kbps";
      item.checked = false;
    }
    if (quality == uses_.settings.KvalitaLT)
      item.checked = true;
  }
}

void Menus::prepare_tray() {
  MenuItem& play = uses_.tree.item(L"LT_TrayMenu_Play");
  play.caption = uses_.form.PlayTL.text();
  play.enabled = uses_.form.PlayTL.enabled();
}

} // namespace lumotune::menus
