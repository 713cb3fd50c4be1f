// SPDX-License-Identifier: LGPL-2.1-or-later
// The file of the favourite stations, list.tt of the program folder: a line a favourite, "lt:", identifier, "/",
// quality. A change is complete on disk beside the old file before that one goes: no crash loses a favourite.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/files.h"
#include "platform/machine.h"

#include <string>

namespace lumotune::stations {

// What became of a favourite that was to be added or removed.
enum class FavouriteAdded { added, already_there, failed };
enum class FavouriteRemoved { removed, not_there, failed };

// What the user is told when a change failed.
inline constexpr const wchar_t* favourites_not_saved =
    L"Oblíbené se nepodařilo uložit.\r\nSoubor list.tt je jen pro čtení, nebo ho používá jiný program.";

// User-interface thread. Lines are compared without regard to letter case; those that are no favourites are kept.
class FavouriteFile {
public:
  struct Uses {
    platform::Files& files;
    const platform::AnsiCodec& codec;
    const platform::Machine& machine;
  };
  explicit FavouriteFile(const Uses& uses) : uses_(uses) {}

  // The bytes of the file; empty when there is none or it cannot be read.
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

  Uses uses_;
};

} // namespace lumotune::stations
