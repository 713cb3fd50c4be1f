// SPDX-License-Identifier: LGPL-2.1-or-later
// What the wheel, the middle button and the keys of the main window do.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/media_player.h"
#include "platform/shell.h"
#include "player/favourite_lists.h"
#include "player/playback.h"
#include "player/status_display.h"

#include <string>

namespace lumotune::player {

// The manual beside the program, a page for the browser.
inline constexpr const wchar_t* manual_file = L"prirucka.html";
inline constexpr const wchar_t* manual_missing = L"Příručku nelze otevřít, u programu chybí soubor prirucka.html.";
inline constexpr const wchar_t* title_copied = L"Název skladby je ve schránce.";
inline constexpr const wchar_t* title_unknown = L"Stanice název skladby neposílá.";
inline constexpr const wchar_t* clipboard_held = L"Schránku používá jiný program, zkuste to znovu.";

// User-interface thread.
class Gestures {
public:
  struct Uses {
    const base::Settings& settings;
    base::LumotuneForm& form;
    const base::ProgramFolder& folder;
    platform::Shell& shell;
    platform::Dialogs& dialogs;
    platform::Clipboard& clipboard;
    const platform::MediaPlayer& player;
    Playback& playback;
    StatusDisplay& status;
    FavouriteLists& favourite_lists;
  };
  explicit Gestures(const Uses& uses) : uses_(uses) {}

  void wheel(int notches); // five per cent of volume each
  void middle_click() { play_or_stop(); }
  void key(platform::WindowKey key);

private:
  void play_or_stop() { uses_.form.PlayTL.press(); }
  void change_volume(int percent);
  void open_manual();
  void copy_title();
  void tell(const std::wstring& text);

  Uses uses_;
};

} // namespace lumotune::player
