// SPDX-License-Identifier: LGPL-2.1-or-later
// Favourites as a playlist for other programs, and back.
#pragma once

#include "base/program_folder.h"
#include "platform/dialogs.h"
#include "player/ports.h"
#include "stations/favourite_file.h"
#include "stations/station_files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::player {

inline constexpr const wchar_t* exported_file = L"oblibene.m3u"; // in the program folder, in the system's code page

// The playlist of a favourites file: for each known favourite its name with the bit rate, and its address. One whose
// address is none of the network is left out. Pure.
[[nodiscard]] std::string playlist_of(std::string_view favourites, const stations::StationLines& stations,
                                      const platform::AnsiCodec& codec);

// The entries of a playlist, at most `most`: its lines that are neither empty nor comments, without blanks around them.
// Pure; views of the bytes.
[[nodiscard]] std::vector<std::string_view> entries_of_playlist(std::string_view bytes, std::size_t most);

// For each entry the line of the favourites file for the station and quality with just that address; empty for an
// unknown one. Pure.
[[nodiscard]] std::vector<std::wstring> favourite_lines_of(const std::vector<std::string_view>& entries,
                                                           const stations::StationLines& stations,
                                                           const platform::AnsiCodec& codec);

// User-interface thread. Both say in a box what they did; events run while it is open.
class FavouriteLists {
public:
  static constexpr std::uint64_t max_bytes = 1024ULL * 1024; // of a playlist
  static constexpr std::size_t max_entries = 1000;
  static constexpr std::size_t told_unknown = 5; // entries that the box names
  static constexpr std::size_t told_characters = 100;

  struct Uses {
    const base::ProgramFolder& folder;
    stations::StationFiles& station_files;
    platform::Dialogs& dialogs;
    FavouritesPort& favourites;
  };
  explicit FavouriteLists(const Uses& uses) : uses_(uses), file_(uses.folder) {}

  void export_list();
  // `path` is one of a drive of this machine.
  void import_list(const std::wstring& path);

private:
  Uses uses_;
  stations::FavouriteFile file_;
};

} // namespace lumotune::player
