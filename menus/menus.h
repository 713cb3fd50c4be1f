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
#include "player/ports.h"
#include "stations/station_lookup.h"

#include <string>
#include <string_view>

namespace lumotune::menus {

// User-interface thread. Each open_... lets events run while the menu is open and while the chosen item does its work;
// while one menu is open no other opens.
class Menus final : public player::MenuPort {
public:
  struct Uses {
    const base::Settings& settings;
    base::LumotuneForm& form;
    const platform::EventLoop& loop;
    platform::PopupMenus& popups;
    stations::StationLookup& stations;
    SkinMenu& skin_menu;
    base::MenuTree& tree;
    MenuCommands& commands;
  };
  explicit Menus(const Uses& uses) : uses_(uses) {}

  void open_main();               // LT_Menu
  void open_volume();             // LT_Volume alone
  void open_station();            // LT_MenuPlRaria
  void open_favourite() override; // LT_MenuRadia
  void open_tray() override;      // LT_TrayMenu

private:
  void prepare_station();
  void prepare_tray();
  void open(std::wstring_view menu, const platform::Control* anchor);

  Uses uses_;
};

} // namespace lumotune::menus
