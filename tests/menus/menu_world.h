// SPDX-License-Identifier: LGPL-2.1-or-later
// The menus on the backend in memory, over the real core and skin rooms; what is above or beside them records.
#pragma once

#include "menus/menus.h"
#include "menus/tray_events.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/menus.h"
#include "tests/support/player_world.h"
#include "tests/support/skin_world.h"

#include <string>
#include <vector>

namespace lumotune::test {

struct MenuWorld : SkinWorld {
  platform::memory::Pointer pointer;
  platform::memory::Connection connection;
  platform::memory::PopupMenus popups{loop};
  platform::memory::InputBox input_box{loop};
  platform::memory::FramedWindowMaker framed_windows{files};
  companions::WebPages web{shell};
  companions::Identity identity{{folder, loop, settings}};
  player::Favourites favourite_list{{folder, settings, session, form, playback, station_files, dialogs, loop, pointer}};
  player::Console console{{session, loop, input_box, dialogs, playback}};
  directory::Directory directory{{settings,       session, form,       error_log, station_files,  stations, playback,
                                  favourite_list, sender,  identity,   web,       loop,           folder,   machine,
                                  shell,          dialogs, connection, popups,    framed_windows, worker}};
  menus::SkinMenu skin_menu{folder};
  menus::MenuCommands items{{settings, session,        form,     loop,        folder,   shell,   dialogs,
                             options,  stations,       playback, client_link, look,     frame,   web,
                             status,   favourite_list, console,  directory,   shutdown, identity}};
  menus::Menus real_menus{{settings, form, loop, popups, stations, favourite_list, skin_menu, items}};
  menus::TrayEvents tray_events{{form, frame, real_menus}};

  MenuWorld() {
    popups.modal.lets_run(loop);
    input_box.modal.lets_run(loop);
    playback.skin.bind(look);
    playback.favourites.bind(favourite_list);
    favourite_list.directory.bind(directory);
    form.TrayIcon.on_mouse_move = [this](const platform::MouseEvent& event) { tray_events.TrayIcon_MouseMove(event); };
    settings.idh = L"IDH";
    settings.h = L"HHH";
    settings.IDlastRadio = L"RADIO1";
    settings.KvalitaLT = L"2";
    settings.LTskin = L"Lumo";
    session.station_name = L"Hraje";
    form.PlayTL.set_enabled(true); // a station is tuned
    player.set_auto_start(false);
    player.calls.clear();
  }

  // The last menu that was opened, with all below it.
  [[nodiscard]] const std::vector<platform::MenuItem>& shown() const { return popups.opened.back().items; }
  [[nodiscard]] const platform::MenuItem& shown(const std::wstring& name) const {
    static const platform::MenuItem none;
    const auto* found = popups.opened.empty() ? nullptr : platform::memory::find_item(shown(), name);
    return found == nullptr ? none : *found;
  }
  void choose(const std::wstring& name) { popups.choices.push_back(name); }

  // The user opens the menu in which the item stands, as it is opened in the program, and chooses it.
  void use(const std::wstring& name) {
    choose(name);
    if (name.starts_with(L"LT_MenuPlRaria"))
      real_menus.open_station();
    else if (name.starts_with(L"LT_MenuRadia"))
      real_menus.open_favourite();
    else if (name.starts_with(L"LT_Menu_"))
      real_menus.open_main();
    else if (name.starts_with(L"LT_TrayMenu"))
      real_menus.open_tray();
    else
      real_menus.open_volume();
  }
  [[nodiscard]] std::wstring command_line() const {
    return shell.started.empty() ? std::wstring() : shell.started.back().command_line;
  }
  void no_server() { (void)files.remove(path(L"Orb_Data\\orb_server.tt")); }
};

} // namespace lumotune::test
