// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/drops.h"

#include "player/dropped_address.h"
#include "player/notices.h"

#include <algorithm>

namespace lumotune::player {

void Drops::dropped(const platform::Drop& drop) {
  if (import_into_list(drop))
    return;
  const bool played = drop.paths.empty() ? play_address(address_of_text(drop.text))
                                         : std::any_of(drop.paths.begin(), drop.paths.end(),
                                                       [this](const std::wstring& path) { return play_file(path); });
  if (!played)
    tell_or_inform(uses_.status, uses_.dialogs, drop_refused);
}

bool Drops::import_into_list(const platform::Drop& drop) {
  if (drop.over != &uses_.form.Control_List || drop.paths.empty())
    return false;
  const std::wstring& path = drop.paths.front();
  const bool playlist = has_ending(path, L"m3u") || has_ending(path, L"m3u8");
  if (!playlist || !is_path_of_drive(path) || !uses_.folder.files().exists(path))
    return false;
  uses_.favourite_lists.import_list(path);
  return true;
}

// The path is looked at before the file is: asking for a file on a share would send the user's name to its host.
bool Drops::play_file(const std::wstring& path) {
  if (!is_path_of_drive(path) || !uses_.folder.files().exists(path))
    return false;
  if (has_ending(path, L"url")) {
    std::string content;
    return uses_.folder.files().read_at_most(path, content, max_shortcut_bytes) &&
           play_address(address_of_shortcut(uses_.folder.codec().decode(content)));
  }
  play(path, platform::AddressOrigin::dropped, stem_of(path));
  return true;
}

bool Drops::play_address(const std::wstring& address) {
  if (address.empty())
    return false;
  play(address, platform::AddressOrigin::station, host_of_address(address));
  return true;
}

void Drops::play(const std::wstring& address, platform::AddressOrigin origin, const std::wstring& name) {
  constexpr std::size_t most_shown = 100; // characters
  uses_.playback.PlayAll(address, origin);
  uses_.session.station_name = name.substr(0, most_shown); // set last: playing looks up the name of the tuned station
}

} // namespace lumotune::player
