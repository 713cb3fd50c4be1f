// SPDX-License-Identifier: LGPL-2.1-or-later
// The pop-up menus of the hidden window `Menus`, a row an item. Captions and marks that follow the state of the program
// are set when a menu opens (`menus.cpp`).
#pragma once

#include "base/menu_tree.h"
#include "base/site.h"
#include "menus/menu_commands.h"

#include <array>
#include <string>

namespace lumotune::menus {

// A procedure gets the caption that the user chose.
using MenuRow = base::MenuRow<MenuCommands&, const std::wstring&>;

struct MenuTable {
  static constexpr auto rows = std::to_array<MenuRow>({
      {0, L"LTmenus", L"LUMOTUNE"},
      {0, L"LT_TrayMenu", L"LT_TrayMenu"},
      {1, L"LT_TrayMenu_Play", L"Zapnout", [](auto& m, auto&) { m.LT_TrayMenu_Play_Click(); }},
      {1, L"LT_Volume", L"Hlasitost"},
      {2, L"Volume5", L"lllllllllllllll", [](auto& m, auto&) { m.VolumeSet(100); }},
      {2, L"Volume4", L"llllllllllll", [](auto& m, auto&) { m.VolumeSet(80); }},
      {2, L"Volume3", L"lllllllll", [](auto& m, auto&) { m.VolumeSet(60); }},
      {2, L"Volume2", L"llllll", [](auto& m, auto&) { m.VolumeSet(40); }},
      {2, L"Volume1", L"lll", [](auto& m, auto&) { m.VolumeSet(20); }},
      {2, L"Volume0", L"O", [](auto& m, auto&) { m.VolumeSet(0); }},
      {1, L"LT_TrayMenu_delcara", L"-"},
      {1, L"LT_TrayMenu_Melodeon", L"Melodeon", [](auto& m, auto&) { m.OrbMelodeon(); }},
      {1, L"LT_TrayMenu_RadioList", L"Seznam rádií", [](auto& m, auto&) { m.Naladit(); }},
      {1, L"LT_TrayMenu_delicicara", L"-"},
      {1, L"LT_TrayMenu_Konec", L"Konec", [](auto& m, auto&) { m.LT_TrayMenu_Konec_Click(); }},
      {0, L"LT_Menu", L"LT_Menu"},
      {1, L"LT_Menu_Orbcz", base::site_name, [](auto& m, auto&) { m.LT_Menu_Orbcz_Click(); }},
      {1, L"LT_Menu_delicicaraax", L"-"},
      {1, L"LT_Menu_ShowUsers", L"Zobrazit posluchače tohoto rádia",
       [](auto& m, auto&) { m.LT_Menu_ShowUsers_Click(); }},
      {1, L"LT_Menu_Disk", L"Diskuze k rádiové stanici", [](auto& m, auto&) { m.LT_Menu_Disk_Click(); }},
      {1, L"LT_Menu_Potize", L"Mám potíže s poslechem...", [](auto& m, auto&) { m.LT_Menu_Potize_Click(); }},
      {1, L"LT_Menu_delicicaraa", L"-"},
      {1, L"LT_Menu_Mp3rec", L"Mp3 nahrávání", [](auto& m, auto&) { m.LT_Menu_Mp3rec_Click(); }},
      {1, L"LT_Menu_library", L"Knihovna nahrávek", [](auto& m, auto&) { m.LT_Menu_library_Click(); }},
      {1, L"LT_Menu_OM", L"Orb Melodeon", [](auto& m, auto&) { m.OrbMelodeon(); }},
      {1, L"LT_Menu_LTadd", L"Přidat nové rádio", [](auto& m, auto&) { m.LT_Menu_LTadd_Click(); }},
      {1, L"LT_Menu_delicicara", L"-"},
      {1, L"LT_Menu_FAQ", L"Nápověda", [](auto& m, auto&) { m.LT_Menu_FAQ_Click(); }},
      {1, L"LT_Menu_Skins", L"Skiny"},
      {2, L"LT_Menu_Skins_SKIN", L"...", [](auto& m, auto& caption) { m.LT_Menu_Skins_SKIN_Click(caption); }},
      {1, L"LT_Menu_Nastaveni", L"Nastavení"},
      {2, L"LT_Menu_Nastaveni_AutoStart", L"Zapnout rádio při startu",
       [](auto& m, auto&) { m.LT_Menu_Nastaveni_AutoStart_Click(); }},
      {2, L"LT_Menu_Nastaveni_OnTop", L"Vždy nahoře", [](auto& m, auto&) { m.LT_Menu_Nastaveni_OnTop_Click(); }},
      {2, L"LT_Menu_Nastaveni_LTCC", L"Konzole", [](auto& m, auto&) { m.LT_Menu_Nastaveni_LTCC_Click(); }},
      {0, L"LT_MenuRadia", L"LT_MenuRadia"},
      {1, L"LT_MenuRadia_Naladit", L"Naladit rádio", [](auto& m, auto&) { m.LT_MenuRadia_Naladit_Click(); }},
      {1, L"LT_MenuRadia_delicicara", L"-"},
      {1, L"LT_MenuRadia_ZobrazUzivatele", L"Zobrazit uživatele poslouchající toto rádio",
       [](auto& m, auto&) { m.LT_Menu_ShowUsers_Click(); }},
      {1, L"LT_MenuRadia_Disk", L"Diskuze k rádiové stanici", [](auto& m, auto&) { m.LT_MenuRadia_Disk_Click(); }},
      {1, L"LT_MenuRadia_Potize", L"Mám potíže s poslechem tohoto rádia",
       [](auto& m, auto&) { m.LT_MenuRadia_Potize_Click(); }},
      {1, L"LT_MenuRadia_delicicara2", L"-"},
      {1, L"LT_MenuRadia_Delete", L"Odebrat z oblíbených rádií", [](auto& m, auto&) { m.LT_MenuRadia_Delete_Click(); }},
      {0, L"LT_MenuPlRaria", L"LT_MenuPlRaria"},
      {1, L"LT_MenuPlRaria_www", L"Web rádia", [](auto& m, auto& caption) { m.LT_MenuPlRaria_www_Click(caption); }},
      {1, L"LT_MenuPlRariaCc", L"-"},
      {1, L"LT_MenuPlRaria_Users", L"Zobrazit posluchače", [](auto& m, auto&) { m.LT_Menu_ShowUsers_Click(); }},
      {1, L"LT_MenuPlRaria_Disk", L"Diskuze k rádiové stanici", [](auto& m, auto&) { m.LT_Menu_Disk_Click(); }},
      {1, L"LT_MenuPlRaria_Err", L"Mám problém s poslechem", [](auto& m, auto&) { m.LT_Menu_Potize_Click(); }},
      {1, L"LT_MenuPlRaria_K", L"Dostupné kvality"},
      {2, L"LT_MenuPlRaria_K_1", L"1", [](auto& m, auto&) { m.LT_MenuPlRaria_K_Click(L"1"); }},
      {2, L"LT_MenuPlRaria_K_2", L"2", [](auto& m, auto&) { m.LT_MenuPlRaria_K_Click(L"2"); }},
      {2, L"LT_MenuPlRaria_K_3", L"3", [](auto& m, auto&) { m.LT_MenuPlRaria_K_Click(L"3"); }},
      {2, L"LT_MenuPlRaria_K_4", L"4", [](auto& m, auto&) { m.LT_MenuPlRaria_K_Click(L"4"); }},
      {2, L"LT_MenuPlRaria_K_5", L"5", [](auto& m, auto&) { m.LT_MenuPlRaria_K_Click(L"5"); }},
      {1, L"LT_MenuPlRariaC", L"-"},
      {1, L"LT_MenuPlRariaSat", L"Naladit jiné rádio", [](auto& m, auto&) { m.Naladit(); }},
  });
};

using MenuTree = base::MenuTree<MenuTable>;

} // namespace lumotune::menus
