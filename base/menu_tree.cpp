// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/menu_tree.h"

#include "base/site.h"

#include <array>
#include <cstdlib>

namespace lumotune::base {
namespace {

using platform::MenuItem;

struct Row {
  std::size_t depth; // 0: a menu of its own
  const wchar_t* name;
  const wchar_t* caption;
};

constexpr std::array<Row, 55> design = {{
    {0, L"LTmenus", L"LUMOTUNE"},
    {0, L"LT_TrayMenu", L"LT_TrayMenu"},
    {1, L"LT_TrayMenu_Play", L"Zapnout"},
    {1, L"LT_Volume", L"Hlasitost"},
    {2, L"Volume5", L"lllllllllllllll"},
    {2, L"Volume4", L"llllllllllll"},
    {2, L"Volume3", L"lllllllll"},
    {2, L"Volume2", L"llllll"},
    {2, L"Volume1", L"lll"},
    {2, L"Volume0", L"O"},
    {1, L"LT_TrayMenu_delcara", L"-"},
    {1, L"LT_TrayMenu_Melodeon", L"Melodeon"},
    {1, L"LT_TrayMenu_RadioList", L"Seznam rádií"},
    {1, L"LT_TrayMenu_delicicara", L"-"},
    {1, L"LT_TrayMenu_Konec", L"Konec"},
    {0, L"LT_Menu", L"LT_Menu"},
    {1, L"LT_Menu_Orbcz", base::site_name},
    {1, L"LT_Menu_delicicaraax", L"-"},
    {1, L"LT_Menu_ShowUsers", L"Zobrazit posluchače tohoto rádia"},
    {1, L"LT_Menu_Disk", L"Diskuze k rádiové stanici"},
    {1, L"LT_Menu_Potize", L"Mám potíže s poslechem..."},
    {1, L"LT_Menu_delicicaraa", L"-"},
    {1, L"LT_Menu_Mp3rec", L"Mp3 nahrávání"},
    {1, L"LT_Menu_library", L"Knihovna nahrávek"},
    {1, L"LT_Menu_OM", L"Orb Melodeon"},
    {1, L"LT_Menu_LTadd", L"Přidat nové rádio"},
    {1, L"LT_Menu_delicicara", L"-"},
    {1, L"LT_Menu_FAQ", L"Nápověda"},
    {1, L"LT_Menu_Skins", L"Skiny"},
    {1, L"LT_Menu_Nastaveni", L"Nastavení"},
    {2, L"LT_Menu_Nastaveni_AutoStart", L"Zapnout rádio při startu"},
    {2, L"LT_Menu_Nastaveni_OnTop", L"Vždy nahoře"},
    {2, L"LT_Menu_Nastaveni_LTCC", L"Konzole"},
    {0, L"LT_MenuRadia", L"LT_MenuRadia"},
    {1, L"LT_MenuRadia_Naladit", L"Naladit rádio"},
    {1, L"LT_MenuRadia_delicicara", L"-"},
    {1, L"LT_MenuRadia_ZobrazUzivatele", L"Zobrazit uživatele poslouchající toto rádio"},
    {1, L"LT_MenuRadia_Disk", L"Diskuze k rádiové stanici"},
    {1, L"LT_MenuRadia_Potize", L"Mám potíže s poslechem tohoto rádia"},
    {1, L"LT_MenuRadia_delicicara2", L"-"},
    {1, L"LT_MenuRadia_Delete", L"Odebrat z oblíbených rádií"},
    {0, L"LT_MenuPlRaria", L"LT_MenuPlRaria"},
    {1, L"LT_MenuPlRaria_www", L"Web rádia"},
    {1, L"LT_MenuPlRariaCc", L"-"},
    {1, L"LT_MenuPlRaria_Users", L"Zobrazit posluchače"},
    {1, L"LT_MenuPlRaria_Disk", L"Diskuze k rádiové stanici"},
    {1, L"LT_MenuPlRaria_Err", L"Mám problém s poslechem"},
    {1, L"LT_MenuPlRaria_K", L"Dostupné kvality"},
    {2, L"LT_MenuPlRaria_K_1", L"1"},
    {2, L"LT_MenuPlRaria_K_2", L"2"},
    {2, L"LT_MenuPlRaria_K_3", L"3"},
    {2, L"LT_MenuPlRaria_K_4", L"4"},
    {2, L"LT_MenuPlRaria_K_5", L"5"},
    {1, L"LT_MenuPlRariaC", L"-"},
    {1, L"LT_MenuPlRariaSat", L"Naladit jiné rádio"},
}};

MenuItem made(const std::wstring& name, const std::wstring& caption) {
  MenuItem item;
  item.name = name;
  item.caption = caption;
  return item;
}

std::wstring element_name(std::size_t index) {
  return std::wstring(skin_array) + L"(" + std::to_wstring(index) + L")";
}

MenuItem* find(std::vector<MenuItem>& items, std::wstring_view name) {
  for (MenuItem& item : items) {
    if (item.name == name)
      return &item;
    if (MenuItem* below = find(item.children, name))
      return below;
  }
  return nullptr;
}

} // namespace

MenuTree::MenuTree() {
  for (const Row& row : design) {
    std::vector<MenuItem>* siblings = &top_level_;
    for (std::size_t depth = 0; depth < row.depth; ++depth)
      siblings = &siblings->back().children;
    siblings->push_back(made(row.name, row.caption));
    siblings->back().separator = siblings->back().caption == L"-";
  }
  item(L"LT_Menu_Skins").children.push_back({});
  unload_skins();
}

MenuItem& MenuTree::item(std::wstring_view name) {
  MenuItem* found = find(top_level_, name);
  if (found == nullptr)
    std::abort(); // names are our own literals
  return *found;
}

void MenuTree::check_volume(int level) {
  for (int each = 0; each <= 5; ++each)
    item(L"Volume" + std::to_wstring(each)).checked = each == level;
}

void MenuTree::unload_skins() {
  auto& elements = item(L"LT_Menu_Skins").children;
  elements.resize(1);
  elements[0] = made(element_name(0), L"...");
  elements[0].enabled = false;
}

void MenuTree::set_skin(std::size_t index, const std::wstring& caption, bool checked) {
  auto& elements = item(L"LT_Menu_Skins").children;
  if (index > elements.size())
    std::abort(); // elements are loaded one after the other
  MenuItem element = made(element_name(index), caption);
  element.checked = checked;
  if (index == elements.size())
    elements.push_back(std::move(element));
  else
    elements[index] = std::move(element);
}

} // namespace lumotune::base
