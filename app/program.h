// SPDX-License-Identifier: LGPL-2.1-or-later
// The program: owns every room and binds them together. Knows no backend.
#pragma once

#include "core/client_link.h"
#include "core/console.h"
#include "core/favourites.h"
#include "core/media_key_rule.h"
#include "core/shutdown.h"
#include "core/startup.h"
#include "core/status_display.h"
#include "directory/directory.h"
#include "directory/identity.h"
#include "platform/connection.h"
#include "platform/framed_window.h"
#include "platform/input_box.h"
#include "platform/popup_menus.h"
#include "platform/user_input.h"
#include "skin/chrome.h"
#include "skin/menu_commands.h"
#include "skin/menus.h"
#include "skin/open_url.h"
#include "skin/report_programs.h"
#include "skin/skin.h"
#include "skin/skin_menu.h"
#include "skin/tray_icon.h"

namespace lumotune::app {

// What the program is built on. Everything outlives it.
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
  platform::Connection& connection;
  platform::FramedWindowMaker& framed_windows;
};

// The ports that rooms above or beside implement, made of the rooms.
class ChromeParts final : public core::ChromePort {
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

class TitleToTray final : public core::TitlePort {
public:
  explicit TitleToTray(skin::TrayIcon& tray) : tray_(tray) {}
  void show_title(const std::wstring& title) override { tray_.show_title(title); }

private:
  skin::TrayIcon& tray_;
};

class ExitToShutdown final : public skin::ExitPort {
public:
  explicit ExitToShutdown(core::Shutdown& shutdown) : shutdown_(shutdown) {}
  void Konec() override { shutdown_.Konec(); }

private:
  core::Shutdown& shutdown_;
};

class WebToPages final : public directory::WebPort {
public:
  explicit WebToPages(skin::WebPages& pages) : pages_(pages) {}
  [[nodiscard]] bool OpenUrl(const std::wstring& address) override { return pages_.open_own(address); }
  [[nodiscard]] bool open_station_web(const std::wstring& address) override { return pages_.open_station_web(address); }

private:
  skin::WebPages& pages_;
};

class Program {
public:
  // The form's controls are made by the caller, because the tray needs one of them.
  Program(const Platform& platform, core::LumotuneForm& form);

  // Loads the main window and shows it. False when this run is over already; then the loop was told to quit.
  [[nodiscard]] bool start();

  core::Settings settings;
  core::Session session;

  core::ErrorLog error_log;
  core::SettingsFiles options;
  core::StationLookup stations;
  core::Playback playback;
  core::StatusDisplay status;
  core::CommandSender sender;
  core::ClientCommands commands;
  core::Startup startup;
  core::Shutdown shutdown;
  skin::Skin skin;
  skin::SkinMenu skin_menu;
  skin::Chrome chrome;
  skin::TrayIcon tray_icon;

  core::Favourites favourites;
  core::ClientLink client_link;
  core::Console console;
  core::MediaKeyRule media_keys;
  directory::Identity identity;
  directory::Directory directory;
  skin::WebPages web_pages;
  skin::ReportPrograms report_programs;
  skin::MenuTree menu_tree;
  skin::MenuCommands menu_commands;
  skin::Menus menus;

  ChromeParts chrome_parts;
  TitleToTray title_to_tray;
  ExitToShutdown exit_to_shutdown;
  WebToPages web_to_pages;

private:
  platform::MediaKeys& keys_;
};

} // namespace lumotune::app
