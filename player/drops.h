// SPDX-License-Identifier: LGPL-2.1-or-later
// What is dropped on the main window plays: a playlist, a sound file, an Internet shortcut, an address.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "platform/dialogs.h"
#include "platform/drop.h"
#include "player/favourite_lists.h"
#include "player/playback.h"
#include "player/status_display.h"

#include <cstdint>
#include <string>

namespace lumotune::player {

// Shown when nothing that was dropped can be played.
inline constexpr const wchar_t* drop_refused =
    L"Tohle přehrát nelze. Přetáhněte sem soubor .m3u nebo .pls, zvukový soubor, nebo adresu stanice.";

// User-interface thread. A file is one of this machine's drives and may not be a share's; what a playlist or a shortcut
// names is an address of the network.
class Drops {
public:
  static constexpr std::uint64_t max_shortcut_bytes = 64ULL * 1024;

  struct Uses {
    base::Session& session;
    const base::LumotuneForm& form;
    const base::ProgramFolder& folder;
    platform::Dialogs& dialogs;
    Playback& playback;
    StatusDisplay& status;
    FavouriteLists& favourite_lists;
  };
  explicit Drops(const Uses& uses) : uses_(uses) {}

  // A playlist dropped on the list of favourites is imported into it. Anything else plays: the first file that can be
  // played, or the address of the text; says so when there is none.
  void dropped(const platform::Drop& drop);

private:
  [[nodiscard]] bool import_into_list(const platform::Drop& drop);
  [[nodiscard]] bool play_file(const std::wstring& path);
  [[nodiscard]] bool play_address(const std::wstring& address);
  void play(const std::wstring& address, platform::AddressOrigin origin, const std::wstring& name);

  Uses uses_;
};

} // namespace lumotune::player
