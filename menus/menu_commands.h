// SPDX-License-Identifier: LGPL-2.1-or-later
// What the items of the pop-up menus do, and the buttons of the main window that do the same.
#pragma once

#include "base/menu_tree.h"
#include "base/program_folder.h"
#include "base/settings_files.h"
#include "companions/command_lines.h"
#include "companions/identity.h"
#include "companions/open_url.h"
#include "directory/directory.h"
#include "platform/dialogs.h"
#include "player/client_link.h"
#include "player/console.h"
#include "player/favourites.h"
#include "player/playback.h"
#include "player/shutdown.h"
#include "player/status_display.h"
#include "skin/chrome.h"
#include "skin/skin.h"

#include <string>

namespace lumotune::menus {

// User-interface thread. Every handler reads the values of the moment; those that show a box, load a skin, ask for
// listeners or open the login page let events run. A program that is missing is not started, and nobody is told.
class MenuCommands {
public:
  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    const platform::EventLoop& loop;
    const base::ProgramFolder& folder;
    platform::Shell& shell;
    platform::Dialogs& dialogs;
    base::SettingsFiles& options;
    stations::StationLookup& stations;
    player::Playback& playback;
    player::ClientLink& client_link;
    skin::Skin& skin;
    skin::Chrome& chrome;
    companions::WebPages& web;
    base::MenuTree& tree;
    player::StatusDisplay& status;
    player::Favourites& favourites;
    player::Console& console;
    directory::Directory& directory;
    player::Shutdown& shutdown;
    companions::Identity& identity;
  };
  explicit MenuCommands(const Uses& uses) : uses_(uses) {}

  // Carries out the item of that name; `caption` is what the user saw. An unknown name does nothing.
  void run(const std::wstring& name, const std::wstring& caption);

  // Buttons of the main window.
  void Control_Rec_Click() { LT_Menu_Mp3rec_Click(); }
  void Orbwww_Click(); // the login page, whether or not a server is known

private:
  struct Row;
  static const Row table[];

  void LT_TrayMenu_Play_Click();
  void LT_Menu_Orbcz_Click();
  void LT_Menu_Disk_Click();
  void LT_Menu_Potize_Click();
  void LT_Menu_Mp3rec_Click();
  void LT_Menu_LTadd_Click();
  void LT_Menu_FAQ_Click();
  void LT_Menu_Nastaveni_AutoStart_Click();
  void LT_MenuRadia_Disk_Click();
  void LT_MenuRadia_Potize_Click();
  void LT_MenuRadia_Delete_Click();
  void LT_MenuPlRaria_K_Click(const std::wstring& quality);
  void LT_Menu_Skins_SKIN_Click(const std::wstring& name);
  void OrbMelodeon();

  [[nodiscard]] bool ready();
  [[nodiscard]] companions::CompanionValues values() const {
    return companions::companion_values(uses_.folder, uses_.settings);
  }
  [[nodiscard]] std::wstring tuned_name();
  void open_login();
  void open_own(const std::wstring& address);
  void LT_MenuPlRaria_www_Click(const std::wstring& address);
  void report_problem(const std::wstring& station_name);
  void inform(const std::wstring& text);
  void tell_refused(); // in the status line, or by a box where nobody would see that

  Uses uses_;
};

} // namespace lumotune::menus
