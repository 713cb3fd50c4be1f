// SPDX-License-Identifier: LGPL-2.1-or-later
// The file of the favourite stations, list.tt of the program folder: a line a favourite, "lt:", identifier, "/",
// quality. A change is complete on disk beside the old file before that one goes: no crash loses a favourite.
#pragma once

#include "base/program_folder.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// What became of a favourite that was to be added or removed.
enum class FavouriteAdded { added, already_there, failed };
enum class FavouriteRemoved { removed, not_there, failed };

// What the user is told when a change failed.
inline constexpr const wchar_t* favourites_not_saved =
    L"Oblíbené se nepodařilo uložit.\r\nSoubor list.tt je jen pro čtení, nebo ho používá jiný program.";

// A favourite, a line of the file.
struct Favourite {
  std::string_view id;     // six characters, a view of the file's bytes
  std::size_t quality = 1; // 1..5
};
// The favourites in the order of the file. Lines that are none, or have no such quality, are left out. Pure.
[[nodiscard]] std::vector<Favourite> read_favourites(std::string_view bytes);
// The line of a favourite. Pure.
[[nodiscard]] std::wstring favourite_line(const std::wstring& id, const std::wstring& quality);

// User-interface thread. Lines are compared without regard to letter case; those that are no favourites are kept.
class FavouriteFile {
public:
  explicit FavouriteFile(const base::ProgramFolder& folder) : folder_(folder) {}

  // The bytes of the file as it is now, which is short and the user's own: no copy of it is kept. Empty when there is
  // none or it cannot be read.
  [[nodiscard]] std::string read() const;

  // Appends a line unless it is there, and drops empty lines. An empty line counts as added and is not written; where
  // nothing is left to write there is no file afterwards. `failed` changes nothing: the file cannot be made, read or
  // replaced, or the text is no line.
  [[nodiscard]] FavouriteAdded add(const std::wstring& line);

  // Takes every such line out. The new file begins with an empty line and has no other, also when nothing was found.
  // `failed` changes nothing. A missing file is made.
  [[nodiscard]] FavouriteRemoved remove(const std::wstring& line);

private:
  [[nodiscard]] std::wstring path() const;

  const base::ProgramFolder& folder_;
};

} // namespace lumotune::stations
