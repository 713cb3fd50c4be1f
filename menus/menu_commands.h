// SPDX-License-Identifier: LGPL-2.1-or-later
// What the items of the pop-up menus do, and the buttons of the main window that do the same.
#pragma once

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

// User-interface thread. Handlers read current values when they run; those that show a box, load a skin, ask for
// listeners or open the login page run events. A companion program that is missing is silently not started.
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
    player::StatusDisplay& status;
    player::Favourites& favourites;
    player::Console& console;
    directory::Directory& directory;
    player::Shutdown& shutdown;
    companions::Identity& identity;
  };
  explicit MenuCommands(const Uses& uses) : uses_(uses) {}

  // What the items do; items that do the same share a procedure.
  void LT_TrayMenu_Play_Click();
  void LT_TrayMenu_Konec_Click() { uses_.shutdown.Konec(); }
  void LT_Menu_Orbcz_Click();
  void LT_Menu_ShowUsers_Click() { uses_.client_link.Control_ShowUser_Click(); }
  void LT_Menu_Disk_Click();
  void LT_Menu_Potize_Click();
  void LT_Menu_Mp3rec_Click();
  void LT_Menu_library_Click();
  void LT_Menu_LTadd_Click();
  void LT_Menu_FAQ_Click();
  void LT_Menu_Skins_SKIN_Click(const std::wstring& name);
  void LT_Menu_Nastaveni_AutoStart_Click();
  void LT_Menu_Nastaveni_OnTop_Click() { uses_.chrome.LineMenu_OnTop_Click(); }
  void LT_Menu_Nastaveni_LTCC_Click() { uses_.console.LTconsole(); }
  void LT_MenuRadia_Naladit_Click() { uses_.form.PlayTL.press(); }
  void LT_MenuRadia_Disk_Click();
  void LT_MenuRadia_Potize_Click();
  void LT_MenuRadia_Delete_Click();
  void LT_MenuPlRaria_www_Click(const std::wstring& address);
  void LT_MenuPlRaria_K_Click(const std::wstring& quality); // "1".."5"
  void VolumeSet(int percent) { uses_.playback.VolumeSet(percent); }
  void Naladit() { uses_.directory.Naladit(); }
  void OrbMelodeon();

  // Buttons of the main window.
  void Control_Rec_Click() { LT_Menu_Mp3rec_Click(); }
  void Orbwww_Click(); // the login page, whether or not a server is known

private:
  [[nodiscard]] bool ready();
  [[nodiscard]] companions::CompanionValues values() const {
    return companions::companion_values(uses_.folder, uses_.settings);
  }
  [[nodiscard]] std::wstring tuned_name();
  void open_login();
  void open_own(const std::wstring& address);
  void report_problem(const std::wstring& station_name);
  void tell_refused(); // in the status line, or by a box when that is not visible

  Uses uses_;
};

} // namespace lumotune::menus
