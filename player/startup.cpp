// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/startup.h"

#include "base/boxes.h"
#include "base/crash_leftovers.h"
#include "base/disk_room.h"
#include "base/text.h"
#include "companions/command_lines.h"

namespace lumotune::player {

using platform::WindowRef;

bool Startup::Form_Load() {
  if (uses_.machine.previous_instance()) {
    forward_to_previous();
    uses_.loop.quit();
    return false;
  }
  base::settle_leftovers(uses_.folder);
  uses_.commands.hold();
  uses_.commands.Hook(true);
  uses_.player.set_auto_start(false);
  uses_.options.LoadOptions();
  if (!LoadOptionsWorkIt() || uses_.loop.quitting()) {
    uses_.loop.quit();
    return false;
  }
  // Everything that is seen is in place: the rest need not be waited for.
  uses_.form.window.set_visible(true);
  uses_.form.window.activate();
  chrome->Tray();
  play_command_line();
  start_client_if_missing();
  uses_.commands.release();
  read_only_check_ = uses_.loop.make_timer(1, [this] { tell_what_cannot_be_saved(); });
  read_only_check_->start();
  return true;
}

// Once, when all is up: a box in the middle of the start would keep the rest of it waiting.
void Startup::tell_what_cannot_be_saved() {
  read_only_check_->stop();
  const std::wstring text = what_cannot_be_saved();
  if (!text.empty())
    base::inform(uses_.dialogs, text);
}

// A box at the end of the program would hold up the end of the session: what could not be saved then is told here, and
// the log remembers that it was.
std::wstring Startup::what_cannot_be_saved() {
  constexpr std::uint64_t enough_bytes = 64ULL * 1024; // for the settings and the favourites
  const bool unsaved = uses_.error_log.last_is(L"SaveOptions", L"options.ini");
  if (unsaved)
    uses_.error_log.add(L"Form_Load", L"options.ini");
  if (const std::wstring names = base::files_that_cannot_be_saved(uses_.folder); !names.empty())
    return L"Tyto soubory nelze zapsat, změny v nich se neuloží:" + names;
  if (const std::wstring disk = base::full_disk(uses_.folder, enough_bytes); !disk.empty())
    return L"Disk " + disk + L" je plný, změny se neuloží.";
  return unsaved ? L"Nastavení se minule nepodařilo uložit.\r\nSoubor options.ini používal jiný program, nebo byl plný "
                   L"disk."
                 : L"";
}

// Our own caption changes first, so that the look-up cannot find this window. It is for the window of the other copy,
// and only without one for any that is captioned like it: another program's must not get the command in its place.
void Startup::forward_to_previous() {
  uses_.form.window.set_caption(L"Lumotune...");
  const WindowRef first = uses_.messages.find_copy(base::main_caption);
  uses_.messages.let_take_foreground(first);
  uses_.sender.send_to(first, L"fmax");
}

bool Startup::LoadOptionsWorkIt() {
  if (uses_.options.locked()) {
    base::inform(uses_.dialogs,
                 L"Soubor options.ini nelze přečíst, používá ho jiný program.\r\nZkuste to prosím později.");
    return false;
  }
  if (!uses_.options.logged_in()) {
    base::inform(uses_.dialogs, L"Nejprve zapněte Orb klienta.");
    // If it cannot be started, the box has told what is needed.
    companions::launch(uses_.shell, companions::client_for_login());
    return false;
  }
  uses_.options.read_values();
  load_skin_of_settings();
  if (uses_.loop.quitting())
    return false; // events ran meanwhile, and one of them ended the program
  if (uses_.settings.LTautoStart == L"1")
    uses_.playback.AutoStart(uses_.settings.IDlastRadio, uses_.settings.KvalitaLT);
  else
    tune_last_station();
  if (uses_.settings.LTTop == L"1")
    chrome->OnTopYES();
  else
    chrome->OnTopNO();
  place_window();
  return true;
}

void Startup::load_skin_of_settings() {
  const std::wstring chosen = uses_.settings.LTskin;
  const bool there = uses_.folder.files().exists(uses_.folder.skins(chosen + L".skin"));
  skin->LoadSkin(there ? chosen : default_skin);
  if (!there)
    uses_.settings.saved_skin = chosen; // the default serves this run only
  skin->ZobrazCoMas(uses_.form.PlayTL.text());
  uses_.playback.VolumeSet(base::volume_value(uses_.settings.LTvolume)); // shows the volume picture too
  uses_.favourites.ZobrazOblibene();
}

// Nothing plays, but one press of the play button will.
void Startup::tune_last_station() {
  const std::wstring address = uses_.playback.tuned_address();
  if (!address.empty())
    uses_.playback.PripravHrani(address);
}

// Each edge by itself: a bad value leaves that edge where it is. A place that no monitor shows any more is a bad one.
void Startup::place_window() {
  auto& window = uses_.form.window;
  const platform::TwipsRect now = window.rect();
  const int left = base::twips_value(uses_.settings.LTpleft).value_or(now.left);
  const int top = base::twips_value(uses_.settings.LTptop).value_or(now.top);
  if (window.on_some_monitor(left, top))
    window.move(left, top);
}

void Startup::play_command_line() {
  const std::wstring address = uses_.machine.command_line();
  if (address.empty())
    return;
  uses_.playback.PlayAll(address, platform::AddressOrigin::listener);
}

void Startup::start_client_if_missing() {
  const bool missing = uses_.messages.find_by_caption(companions::client_caption) == WindowRef::none;
  uses_.session.ClientStartedByUs = missing;
  if (!missing)
    return;
  // The player works without the client as well: a failed start needs no handling.
  companions::launch(uses_.shell,
                     companions::messenger_client(companions::companion_values(uses_.folder, uses_.settings)));
}

} // namespace lumotune::player
