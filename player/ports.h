// SPDX-License-Identifier: LGPL-2.1-or-later
// What the core asks of the rooms above it. Every call is synchronous, on the user-interface thread: the order of steps
// matters. A call may let events run only where it says so.
#pragma once

#include "base/slot.h"

#include <string>

namespace lumotune::player {

// The look of the main window.
struct SkinPort {
  virtual ~SkinPort() = default;
  virtual void LoadSkin(const std::wstring& name) = 0; // lets events run between lines
  virtual void ZobrazCoMas(const std::wstring& play_button_text) = 0;
  virtual void SkinVolume(int percent) = 0;
  virtual void load_play_picture() = 0; // "\play.gif" of the current skin into Control_Play
};
struct NoSkin final : SkinPort {
  void LoadSkin(const std::wstring& /*name*/) override {}
  void ZobrazCoMas(const std::wstring& /*play_button_text*/) override {}
  void SkinVolume(int /*percent*/) override {}
  void load_play_picture() override {}
};
using SkinSlot = base::Slot<SkinPort, NoSkin>;

// The window's frame: topmost layer, hiding and showing, the notification-area icon.
struct ChromePort {
  virtual ~ChromePort() = default;
  virtual void OnTopYES() = 0;
  virtual void OnTopNO() = 0;
  virtual void FormMax() = 0;
  virtual void Tray() = 0;
  virtual void remove_tray() = 0;
};
struct NoChrome final : ChromePort {
  void OnTopYES() override {}
  void OnTopNO() override {}
  void FormMax() override {}
  void Tray() override {}
  void remove_tray() override {}
};
using ChromeSlot = base::Slot<ChromePort, NoChrome>;

// The pop-up menus: check marks, and the menus that a click on the main window opens (events run while one is open).
struct MenuPort {
  virtual ~MenuPort() = default;
  virtual void check_auto_start(bool on) = 0; // LT_Menu_Nastaveni_AutoStart
  virtual void check_on_top(bool on) = 0;     // LT_Menu_Nastaveni_OnTop
  virtual void check_volume(int level) = 0;   // Volume0..Volume5: that one checked, the others not
  virtual void open_volume() = 0;             // LT_Volume
  virtual void open_station() = 0;            // LT_MenuPlRaria, as opened by a click on InfoName
};
struct NoMenu final : MenuPort {
  void check_auto_start(bool /*on*/) override {}
  void check_on_top(bool /*on*/) override {}
  void check_volume(int /*level*/) override {}
  void open_volume() override {}
  void open_station() override {}
};
using MenuSlot = base::Slot<MenuPort, NoMenu>;

// The list of favourite stations.
struct FavouritesPort {
  virtual ~FavouritesPort() = default;
  virtual void ZobrazOblibene() = 0;
  virtual void show_in_place() = 0; // the list or the hint while nothing plays, as it stands: nothing is read anew
};
struct NoFavourites final : FavouritesPort {
  void ZobrazOblibene() override {}
  void show_in_place() override {}
};
using FavouritesSlot = base::Slot<FavouritesPort, NoFavourites>;

// One entry goes out of the favourites.
struct FavouritesDeletePort {
  virtual ~FavouritesDeletePort() = default;
  // The whole line of the favourites file: "lt:", identifier, "/", quality. A box tells of the success.
  virtual void DeleteFromOblibene(const std::wstring& RadioDelete) = 0;
};
struct NoFavouritesDelete final : FavouritesDeletePort {
  void DeleteFromOblibene(const std::wstring& /*RadioDelete*/) override {}
};
using FavouritesDeleteSlot = base::Slot<FavouritesDeletePort, NoFavouritesDelete>;

// The pop-up menu of the favourites list, LT_MenuRadia (events run while it is open).
struct FavouriteMenuPort {
  virtual ~FavouriteMenuPort() = default;
  virtual void set_tune_caption(const std::wstring& caption) = 0; // LT_MenuRadia_Naladit
  virtual void open_favourite() = 0;
};
struct NoFavouriteMenu final : FavouriteMenuPort {
  void set_tune_caption(const std::wstring& /*caption*/) override {}
  void open_favourite() override {}
};
using FavouriteMenuSlot = base::Slot<FavouriteMenuPort, NoFavouriteMenu>;

// The console: asks for command lines and carries them out (events run meanwhile).
struct ConsolePort {
  virtual ~ConsolePort() = default;
  virtual void LTconsole() = 0;
};
struct NoConsole final : ConsolePort {
  void LTconsole() override {}
};
using ConsoleSlot = base::Slot<ConsolePort, NoConsole>;

// The station directory window.
struct DirectoryPort {
  virtual ~DirectoryPort() = default;
  virtual void Naladit() = 0;
};
struct NoDirectory final : DirectoryPort {
  void Naladit() override {}
};
using DirectorySlot = base::Slot<DirectoryPort, NoDirectory>;

// The one-shot play report to the community service.
struct PlayReportPort {
  virtual ~PlayReportPort() = default;
  virtual void enable_Timer1() = 0;
};
struct NoPlayReport final : PlayReportPort {
  void enable_Timer1() override {}
};
using PlayReportSlot = base::Slot<PlayReportPort, NoPlayReport>;

// Who hears that there is something to be played or stopped: from now on PlayTL can be pressed.
struct PlayablePort {
  virtual ~PlayablePort() = default;
  virtual void can_be_pressed() = 0;
};
struct NoPlayable final : PlayablePort {
  void can_be_pressed() override {}
};
using PlayableSlot = base::Slot<PlayablePort, NoPlayable>;

// The programs that the play report starts; by the values of the moment, and nobody is told when one is missing.
struct ReportProgramsPort {
  virtual ~ReportProgramsPort() = default;
  virtual void start_client() = 0;                    // in the background
  virtual void start_report(bool client_link_on) = 0; // the downloader, for the tuned station
};
struct NoReportPrograms final : ReportProgramsPort {
  void start_client() override {}
  void start_report(bool /*client_link_on*/) override {}
};
using ReportProgramsSlot = base::Slot<ReportProgramsPort, NoReportPrograms>;

} // namespace lumotune::player
