// SPDX-License-Identifier: LGPL-2.1-or-later
// Ends the program.
#pragma once

#include "base/settings_files.h"
#include "companions/send_command.h"
#include "platform/machine.h"
#include "player/client_commands.h"
#include "player/ports.h"
#include "player/title_history.h"

namespace lumotune::player {

// User-interface thread.
class Shutdown {
public:
  struct Uses {
    const base::Session& session;
    platform::EventLoop& loop;
    platform::Machine& machine;
    platform::WindowMessages& messages;
    platform::MediaPlayer& player;
    base::SettingsFiles& options;
    ClientCommands& commands;
    companions::CommandSender& sender;
    TitleHistory& titles;
  };
  explicit Shutdown(const Uses& uses) : uses_(uses) {}

  ChromeSlot chrome;

  // Saves and ends the program. Runs once, whatever triggers it: the close picture, the menus, the window's close, the
  // end of the session.
  void Konec();
  // The system closes the window.
  void Form_Unload() { Konec(); }

private:
  Uses uses_;
  bool begun_ = false;
};

} // namespace lumotune::player
