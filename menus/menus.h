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
#include "skin/ports.h"
#include "stations/station_lookup.h"

#include <string>
#include <string_view>

namespace lumotune::menus {

// User-interface thread. Each open_... lets events run while the menu is open and while the chosen item does its work;
// while one menu is open no other opens.
class Menus final : public player::MenuPort,
                    public player::FavouriteMenuPort,
                    public skin::SkinMenuPort,
                    public skin::TrayMenuPort {
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

  void Control_Menu_Click() { open_main(); }
  void open_main();               // LT_Menu
  void open_volume() override;    // LT_Volume alone
  void open_station() override;   // LT_MenuPlRaria
  void open_favourite() override; // LT_MenuRadia
  void pop_up() override;         // LT_TrayMenu

  void check_auto_start(bool on) override;
  void check_on_top(bool on) override;
  void check_volume(int level) override;
  void set_tune_caption(const std::wstring& caption) override;
  void show_volume_submenu() override { uses_.tree.item(L"LT_Volume").visible = true; }
  void unload_above_0() override { uses_.tree.unload_skins(); }
  void set_element(std::size_t index, const std::wstring& caption, bool checked) override {
    uses_.tree.set_skin(index, caption, checked);
  }

private:
  void prepare_station();
  void prepare_tray();
  void open(std::wstring_view menu, const platform::Control* anchor);

  Uses uses_;
};

} // namespace lumotune::menus
