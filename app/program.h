// SPDX-License-Identifier: LGPL-2.1-or-later
// The program: owns every room and binds them together. Knows no backend.
#pragma once

#include "core/shutdown.h"
#include "core/startup.h"
#include "core/status_display.h"
#include "skin/chrome.h"
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

// Stands in for the favourites' room: an empty list shows the hint while nothing plays.
class EmptyFavourites final : public core::FavouritesPort {
public:
  struct Uses {
    core::Session& session;
    core::LumotuneForm& form;
    core::Playback& playback;
  };
  explicit EmptyFavourites(const Uses& uses) : uses_(uses) {}
  void ZobrazOblibene() override;

private:
  Uses uses_;
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

  ChromeParts chrome_parts;
  TitleToTray title_to_tray;
  ExitToShutdown exit_to_shutdown;
  EmptyFavourites favourites;
};

} // namespace lumotune::app
