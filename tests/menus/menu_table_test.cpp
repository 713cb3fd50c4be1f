// SPDX-License-Identifier: LGPL-2.1-or-later
// The design of the menus: names, captions, order, separators.
#include "menus/menu_table.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::MenuItem;

// One line an item: as deep as it stands, its name, its caption.
std::wstring drawn(const std::vector<MenuItem>& items, const std::wstring& indent = L"") {
  std::wstring text;
  for (const MenuItem& item : items) {
    text += indent + item.name + L" = " + item.caption + L"\n";
    text += drawn(item.children, indent + L"  ");
  }
  return text;
}

const wchar_t* const design = LR"(LTmenus = LUMOTUNE
LT_TrayMenu = LT_TrayMenu
  LT_TrayMenu_Play = Zapnout
  LT_Volume = Hlasitost
    Volume5 = lllllllllllllll
    Volume4 = llllllllllll
    Volume3 = lllllllll
    Volume2 = llllll
    Volume1 = lll
    Volume0 = O
  LT_TrayMenu_delcara = -
  LT_TrayMenu_Melodeon = Melodeon
  LT_TrayMenu_RadioList = Seznam rádií
  LT_TrayMenu_delicicara = -
  LT_TrayMenu_Konec = Konec
LT_Menu = LT_Menu
  LT_Menu_Orbcz = Orb
  LT_Menu_delicicaraax = -
  LT_Menu_ShowUsers = Zobrazit posluchače tohoto rádia
  LT_Menu_Disk = Diskuze k rádiové stanici
  LT_Menu_Potize = Mám potíže s poslechem...
  LT_Menu_delicicaraa = -
  LT_Menu_Mp3rec = Mp3 nahrávání
  LT_Menu_library = Knihovna nahrávek
  LT_Menu_OM = Orb Melodeon
  LT_Menu_LTadd = Přidat nové rádio
  LT_Menu_delicicara = -
  LT_Menu_FAQ = Nápověda
  LT_Menu_Skins = Skiny
    LT_Menu_Skins_SKIN = ...
  LT_Menu_Nastaveni = Nastavení
    LT_Menu_Nastaveni_AutoStart = Zapnout rádio při startu
    LT_Menu_Nastaveni_OnTop = Vždy nahoře
    LT_Menu_Nastaveni_LTCC = Konzole
LT_MenuRadia = LT_MenuRadia
  LT_MenuRadia_Naladit = Naladit rádio
  LT_MenuRadia_delicicara = -
  LT_MenuRadia_ZobrazUzivatele = Zobrazit uživatele poslouchající toto rádio
  LT_MenuRadia_Disk = Diskuze k rádiové stanici
  LT_MenuRadia_Potize = Mám potíže s poslechem tohoto rádia
  LT_MenuRadia_delicicara2 = -
  LT_MenuRadia_Delete = Odebrat z oblíbených rádií
LT_MenuPlRaria = LT_MenuPlRaria
  LT_MenuPlRaria_www = Web rádia
  LT_MenuPlRariaCc = -
  LT_MenuPlRaria_Users = Zobrazit posluchače
  LT_MenuPlRaria_Disk = Diskuze k rádiové stanici
  LT_MenuPlRaria_Err = Mám problém s poslechem
  LT_MenuPlRaria_K = Dostupné kvality
    LT_MenuPlRaria_K_1 = 1
    LT_MenuPlRaria_K_2 = 2
    LT_MenuPlRaria_K_3 = 3
    LT_MenuPlRaria_K_4 = 4
    LT_MenuPlRaria_K_5 = 5
  LT_MenuPlRariaC = -
  LT_MenuPlRariaSat = Naladit jiné rádio
)";

TEST(MenuTableTest, NamesCaptionsOrderAndSeparatorsAreAsDesigned) {
  EXPECT_EQ(drawn(menus::MenuTree().all()), design);
}

bool plain(const std::vector<MenuItem>& items) {
  for (const MenuItem& item : items) {
    if (item.checked || !item.visible || !item.enabled || !plain(item.children))
      return false;
  }
  return true;
}

TEST(MenuTableTest, NothingIsCheckedHiddenOrDisabled) {
  EXPECT_TRUE(plain(menus::MenuTree().all()));
}

} // namespace
} // namespace lumotune::test
