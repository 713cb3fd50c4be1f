// SPDX-License-Identifier: LGPL-2.1-or-later
// The hidden window `Menus`: prepares the pop-up menus of the main window and opens them.
#pragma once

#include "base/lumotune_form.h"
#include "base/menu_tree.h"
#include "base/session.h"
#include "menus/menu_commands.h"
#include "menus/skin_menu.h"
#include "platform/event_loop.h"
#include "platform/popup_menus.h"
#include "player/favourites.h"
#include "stations/station_lookup.h"

#include <string>
#include <string_view>

namespace lumotune::menus {

// User-interface thread. Each open_... lets events run while the menu is open and while the chosen item does its work;
// while one menu is open no other opens.
class Menus {
public:
  struct Uses {
    const base::Settings& settings;
    base::LumotuneForm& form;
    const platform::EventLoop& loop;
    platform::PopupMenus& popups;
    stations::StationLookup& stations;
    const player::Favourites& favourites;
    SkinMenu& skin_menu;
    base::MenuTree& tree;
    MenuCommands& commands;
  };
  explicit Menus(const Uses& uses) : uses_(uses) {}

  void open_main();      // LT_Menu
  void open_volume();    // LT_Volume alone
  void open_station();   // LT_MenuPlRaria
  void open_favourite(); // LT_MenuRadia, for the selected entry of the list
  void open_tray();      // LT_TrayMenu at the pointer

private:
  void prepare_station();
  void prepare_tray();
  void open(std::wstring_view menu, const platform::Control* anchor);

  Uses uses_;
};

} // namespace lumotune::menus
