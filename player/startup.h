// SPDX-License-Identifier: LGPL-2.1-or-later
// What happens when the main window is loaded.
#pragma once

#include "base/program_folder.h"
#include "base/settings_files.h"
#include "companions/send_command.h"
#include "platform/dialogs.h"
#include "player/client_commands.h"
#include "player/playback.h"
#include "player/ports.h"
#include "player/status_display.h"

#include <memory>
#include <string>

namespace lumotune::player {

// The skin that is always installed.
inline constexpr const wchar_t* default_skin = L"Lumo";

// User-interface thread; runs once.
class Startup {
public:
  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    platform::EventLoop& loop;
    const base::ProgramFolder& folder;
    const platform::Machine& machine;
    platform::WindowMessages& messages;
    platform::Shell& shell;
    platform::Dialogs& dialogs;
    platform::MediaPlayer& player;
    base::SettingsFiles& options;
    base::ErrorLog& error_log;
    Playback& playback;
    ClientCommands& commands;
    companions::CommandSender& sender;
    FavouritesPort& favourites;
  };
  explicit Startup(const Uses& uses) : uses_(uses) {}

  SkinSlot skin;
  ChromeSlot chrome;

  // Loads the window and shows it. False when this run is over already: another copy runs, or the client has not logged
  // in. `quit` was called then.
  [[nodiscard]] bool Form_Load();

private:
  void forward_to_previous();
  [[nodiscard]] bool LoadOptionsWorkIt();
  void load_skin_of_settings();
  void tune_last_station();
  void place_window();
  void play_command_line();
  void start_client_if_missing();
  void tell_what_cannot_be_saved();
  [[nodiscard]] std::wstring what_cannot_be_saved();

  Uses uses_;
  std::unique_ptr<platform::Timer> read_only_check_;
};

} // namespace lumotune::player
