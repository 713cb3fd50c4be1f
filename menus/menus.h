// SPDX-License-Identifier: LGPL-2.1-or-later
// The hidden window `Menus`: prepares the pop-up menus of the main window and opens them.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"
#include "menus/menu_table.h"
#include "menus/skin_menu.h"
#include "platform/event_loop.h"
#include "platform/popup_menus.h"
#include "player/favourites.h"
#include "stations/station_lookup.h"

namespace lumotune::menus {

// User-interface thread. Each open_... builds its tree from the current state and runs events while the menu is open
// and while the chosen item does its work. Only one menu is open at a time.
class Menus {
public:
  struct Uses {
    const base::Settings& settings;
    base::LumotuneForm& form;
    const platform::EventLoop& loop;
    platform::PopupMenus& popups;
    stations::StationLookup& stations;
    const player::Favourites& favourites;
    const SkinMenu& skin_menu;
    MenuCommands& commands;
  };
  explicit Menus(const Uses& uses) : uses_(uses) {}

  void open_main();      // LT_Menu
  void open_volume();    // LT_Volume alone
  void open_station();   // LT_MenuPlRaria
  void open_favourite(); // LT_MenuRadia, for the selected entry of the list
  void open_tray();      // LT_TrayMenu at the pointer

private:
  void mark_volume(MenuTree& tree) const;
  void prepare_station(MenuTree& tree) const;
  void open(const MenuTree& tree, MenuTree::Name menu, const platform::Control* anchor);

  Uses uses_;
};

} // namespace lumotune::menus
