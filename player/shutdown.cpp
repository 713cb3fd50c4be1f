// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/shutdown.h"

#include "companions/command_lines.h"

namespace lumotune::player {

void Shutdown::Konec() {
  if (begun_)
    return;
  begun_ = true;
  uses_.machine.begin_end();
  uses_.loop.begin_end();
  uses_.commands.Hook(false);
  uses_.loop.run_pending();
  uses_.player.stop(); // silence at once: the remaining steps may take a moment
  chrome->remove_tray();
  uses_.titles.flush();
  uses_.options.LoadOptions(); // keeps what the client wrote meanwhile
  uses_.options.SaveOptions();
  chrome->OnTopNO();
  if (uses_.session.ClientStartedByUs &&
      uses_.messages.find_by_caption(companions::client_caption) != platform::WindowRef::none)
    uses_.sender.SendCommand(companions::client_program, companions::client_caption, L"orbend", L"x");
  uses_.loop.quit();
}

} // namespace lumotune::player
