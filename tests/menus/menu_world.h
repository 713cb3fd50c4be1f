// SPDX-License-Identifier: LGPL-2.1-or-later
// The menus on the backend in memory, over the real core and skin rooms; what is above or beside them records.
#pragma once

#include "menus/menus.h"
#include "platform/memory/menus.h"
#include "tests/support/player_world.h"
#include "tests/support/skin_world.h"

#include <string>
#include <vector>

namespace lumotune::test {

struct RecordingNeighbours final : player::FavouritesDeletePort,
                                   player::ConsolePort,
                                   skin::ExitPort,
                                   companions::IdentitySource {
  explicit RecordingNeighbours(Journal& journal_used) : journal(journal_used) {}
  void DeleteFromOblibene(const std::wstring& line) override { journal.push_back(L"delete " + line); }
  void LTconsole() override { journal.emplace_back(L"console"); }
  void Konec() override { journal.emplace_back(L"Konec"); }
  std::wstring Heslo(const std::wstring& text) override {
    if (during)
      during();
    return L"<" + text + L">";
  }
  Journal& journal;
  std::function<void()> during;
};

struct MenuWorld : PlayerWorld {
  platform::memory::MemoryPopupMenus popups{loop};
  player::ClientLink client_link{{files, codec, machine, loop, dialogs, settings, options, sender}};
  skin::Skin look{{settings, session, form, files, codec, machine, loop, error_log}};
  menus::SkinMenu skin_menu{{files, machine}};
  skin::Chrome frame{{settings, session, form, machine}};
  skin::TrayIcon tray_icon{{form, tray, frame}};
  companions::WebPages web{shell};
  base::MenuTree tree;
  menus::MenuCommands items{{settings, session, form, loop, machine, shell, dialogs, options, stations, playback,
                             client_link, look, frame, web, tree, status}};
  menus::Menus real_menus{{settings, form, loop, popups, stations, skin_menu, tree, items}};
  RecordingNeighbours neighbours{journal};

  MenuWorld() {
    popups.modal.lets_run(loop);
    playback.skin.bind(look);
    playback.menus.bind(real_menus);
    look.menus.bind(real_menus);
    frame.menus.bind(real_menus);
    skin_menu.menu.bind(real_menus);
    tray_icon.menu.bind(real_menus);
    items.favourites.bind(favourites);
    items.favourites_delete.bind(neighbours);
    items.console.bind(neighbours);
    items.directory.bind(directory);
    items.exit.bind(neighbours);
    items.identity.bind(neighbours);
    form.TrayIcon.on_mouse_move = [this](const platform::MouseEvent& event) { tray_icon.TrayIcon_MouseMove(event); };
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
      real_menus.pop_up();
    else
      real_menus.open_volume();
  }
  [[nodiscard]] std::wstring command_line() const {
    return shell.started.empty() ? std::wstring() : shell.started.back().command_line;
  }
  void no_server() { (void)files.remove(path(L"Orb_Data\\orb_server.tt")); }
};

} // namespace lumotune::test
