// SPDX-License-Identifier: LGPL-2.1-or-later
// The program: owns every room and binds them together. Independent of the backend.
#pragma once

#include "companions/identity.h"
#include "companions/open_url.h"
#include "directory/directory.h"
#include "menus/menu_commands.h"
#include "menus/menus.h"
#include "menus/skin_menu.h"
#include "menus/tray_events.h"
#include "platform/clipboard.h"
#include "platform/connection.h"
#include "platform/framed_window.h"
#include "platform/input_box.h"
#include "platform/popup_menus.h"
#include "platform/user_input.h"
#include "platform/worker.h"
#include "player/client_link.h"
#include "player/console.h"
#include "player/drops.h"
#include "player/favourite_lists.h"
#include "player/favourites.h"
#include "player/gestures.h"
#include "player/media_key_rule.h"
#include "player/quality_backup.h"
#include "player/report_programs.h"
#include "player/shutdown.h"
#include "player/startup.h"
#include "player/status_display.h"
#include "player/title_history.h"
#include "skin/chrome.h"
#include "skin/skin.h"
#include "skin/skin_installer.h"
#include "skin/tray_icon.h"

namespace lumotune::app {

// The platform services the program uses. They must outlive it.
struct Platform {
  platform::EventLoop& loop;
  platform::AnsiCodec& codec;
  platform::Files& files;
  platform::Shell& shell;
  platform::Machine& machine;
  platform::Window& window;
  platform::WindowMessages& messages;
  platform::Dialogs& dialogs;
  platform::Tray& tray;
  platform::MediaPlayer& player;
  platform::PopupMenus& popups;
  platform::InputBox& input_box;
  platform::Pointer& pointer;
  platform::MediaKeys& media_keys;
  platform::Clipboard& clipboard;
  platform::Connection& connection;
  platform::FramedWindowMaker& framed_windows;
  platform::Worker& worker;
};

// The window's frame and the tray icon, combined for the player.
class ChromeParts final : public player::ChromePort {
public:
  ChromeParts(skin::Chrome& chrome, skin::TrayIcon& tray) : chrome_(chrome), tray_(tray) {}
  void OnTopYES() override { chrome_.OnTopYES(); }
  void OnTopNO() override { chrome_.OnTopNO(); }
  void FormMax() override { chrome_.FormMax(); }
  void Tray() override { tray_.Tray(); }
  void remove_tray() override { tray_.remove(); }

private:
  skin::Chrome& chrome_;
  skin::TrayIcon& tray_;
};

class Program {
public:
  // The caller creates the form's controls, because the tray needs one of them.
  Program(const Platform& platform, base::LumotuneForm& form);

  // Loads the main window and shows it. False when this run is already over; the loop has then been told to quit.
  [[nodiscard]] bool start();

  base::Settings settings;
  base::Session session;

  base::ProgramFolder folder;
  base::ErrorLog error_log;
  base::SettingsFiles options;
  stations::StationFiles station_files;
  stations::StationLookup stations;
  companions::CommandSender sender;
  companions::WebPages web_pages;
  companions::Identity identity;

  player::ReportPrograms report_programs;
  player::ClientLink client_link;
  player::MediaKeyRule media_keys;
  player::Playback playback;
  player::StatusDisplay status;
  player::QualityBackup quality_backup;
  player::TitleHistory title_history;
  player::Favourites favourites;
  player::Console console;
  player::FavouriteLists favourite_lists;
  player::Drops drops;
  player::Gestures gestures;
  player::ClientCommands commands;
  player::Startup startup;
  player::Shutdown shutdown;

  skin::Skin skin;
  skin::Chrome chrome;
  skin::TrayIcon tray_icon;
  skin::SkinInstaller skin_installer;
  directory::Directory directory;

  menus::SkinMenu skin_menu;
  menus::MenuCommands menu_commands;
  menus::Menus menus;
  menus::TrayEvents tray_events;

  ChromeParts chrome_parts;

private:
  platform::MediaKeys& keys_;
};

} // namespace lumotune::app
