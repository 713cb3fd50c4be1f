// SPDX-License-Identifier: LGPL-2.1-or-later
// Entry point on Windows: creates the backend, the player and the program, and runs the loop.
#include "app/program.h"
#include "base/error_log.h"
#include "platform/media/player.h"
#include "platform/win32/backend.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/connection.h"
#include "platform/win32/crash_text.h"
#include "platform/win32/end_limit.h"
#include "platform/win32/hardening.h"
#include "platform/win32/input_box.h"
#include "platform/win32/popup_menus.h"
#include "platform/win32/proxy.h"
#include "platform/win32/user_input.h"
#include "resource.h"
#include "version.h"

#include <string>

namespace {

using namespace lumotune;

// Measured from the user's request to exit until the process ends itself; with the system's own clean-up, the end stays
// within the six seconds promised to users. Settings are saved first.
constexpr std::uint32_t longest_end_ms = 5000;

void run(platform::win32::Backend& backend) {
  backend.machine.on_begin_end = [] { platform::win32::limit_end(longest_end_ms); };
  platform::win32::MediaKeys media_keys(backend.loop, backend.window.handle());
  platform::win32::PopupMenus popups(backend.loop, backend.window.handle());
  platform::win32::InputBox input_box(backend.loop, backend.window.handle());
  platform::win32::Pointer pointer;
  platform::win32::Clipboard clipboard(backend.loop, backend.window.handle());
  platform::win32::Connection connection;
  // Two companion programs are started from the current directory. The trailing backslash turns a bare drive into its
  // root instead of the drive's current folder.
  SetCurrentDirectoryW((backend.machine.program_folder() + L"\\").c_str());
  base::LumotuneForm form(backend.window);
  platform::win32::Tray tray(backend.window, form.TrayIcon);
  media::PlayerOptions options;
  options.user_agent = "Lumotune/" LUMOTUNE_VERSION;
  options.proxy = platform::win32::system_proxy;
  const auto player = media::make_media_player(backend.loop, options);
  app::Program program({backend.loop, backend.codec, backend.files, backend.shell, backend.machine, backend.window,
                        backend.messages, backend.dialogs, tray, *player, popups, input_box, pointer, media_keys,
                        clipboard, connection, backend.framed_windows, backend.worker},
                       form);
  if (program.start())
    backend.loop.run();
  backend.machine.begin_end(); // also ends a start that failed
}

// Logs exceptions from the program's handlers and from the program itself; they would be invisible otherwise.
int run_and_log() {
  // The system's own error dialogs for files would hide our reports.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  platform::win32::Backend backend(base::main_caption, LUMOTUNE_ICON);
  const base::ProgramFolder folder(backend.files, backend.codec, backend.machine);
  base::ErrorLog log({folder, backend.machine});
  platform::CaughtErrors& caught = backend.loop.caught();
  caught.on_caught = [&](const std::string& what) { log.add(L"exception", backend.codec.decode(what)); };
  int result = 1;
  caught.guard([&] {
    run(backend);
    result = 0;
  });
  caught.on_caught = {}; // the log is destroyed before the backend
  return result;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  platform::win32::harden_process();
  platform::win32::guarded([] { platform::win32::arm_crash_text(L"Orb_Data\\pad.txt", LUMOTUNE_VERSION); });
  int result = 1;
  platform::win32::guarded([&] { result = run_and_log(); });
  // Not by returning: a worker blocked in a name look-up must not keep the process alive.
  platform::win32::end_now(static_cast<unsigned>(result));
}
