// SPDX-License-Identifier: LGPL-2.1-or-later
// The menu of a station, a row an item. The links of the details open one of its submenus each. Captions, and what is
// offered of it, are set when it opens (`actions.cpp`).
#pragma once

#include "base/menu_tree.h"
#include "directory/actions.h"

#include <array>

namespace lumotune::directory {

struct StationMenuTable {
  static constexpr auto rows = std::to_array<base::MenuRow<Actions&, const Actions::Choice&>>({
      {0, L"SkryteMenu", L"SkryteMenu"},
      {1, L"WebRadia", L"Web rádia", [](auto& a, auto& choice) { a.WebRadia_Click(choice.caption); }},
      {1, L"cara1", L"-"},
      {1, L"NaladRadio", L"Naladit rádio"},
      {2, L"Kvalita1play", L"K1", [](auto& a, auto& choice) { a.play_quality(choice, 1); }},
      {2, L"Kvalita2play", L"K2", [](auto& a, auto& choice) { a.play_quality(choice, 2); }},
      {2, L"Kvalita3play", L"K3", [](auto& a, auto& choice) { a.play_quality(choice, 3); }},
      {2, L"Kvalita4play", L"K4", [](auto& a, auto& choice) { a.play_quality(choice, 4); }},
      {2, L"Kvalita5play", L"K5", [](auto& a, auto& choice) { a.play_quality(choice, 5); }},
      {2, L"caraa", L"-"},
      {1, L"DostupnaKvalita", L"Přidat rádio do rychlého seznamu"},
      {2, L"Kvalita1", L"K1", [](auto& a, auto& choice) { a.add_quality(choice, 1); }},
      {2, L"Kvalita2", L"K2", [](auto& a, auto& choice) { a.add_quality(choice, 2); }},
      {2, L"Kvalita3", L"K3", [](auto& a, auto& choice) { a.add_quality(choice, 3); }},
      {2, L"Kvalita4", L"K4", [](auto& a, auto& choice) { a.add_quality(choice, 4); }},
      {2, L"Kvalita5", L"K5", [](auto& a, auto& choice) { a.add_quality(choice, 5); }},
      {2, L"cara", L"-"},
      {2, L"KvalitaInfo", L"Informace", [](auto& a, auto&) { a.KvalitaInfo_Click(); }},
      {1, L"cara2", L"-"},
      {1, L"ShowUsers", L"Zobrazit posluchače", [](auto& a, auto&) { a.ShowUsers_Click(); }},
      {1, L"Diskuze", L"Diskuze k rádiové stanici", [](auto& a, auto&) { a.Diskuze_Click(); }},
      {1, L"Potize", L"Mám potíže s poslechem tohoto rádia", [](auto& a, auto&) { a.Potize_Click(); }},
  });
};

} // namespace lumotune::directory
