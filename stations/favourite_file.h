// SPDX-License-Identifier: LGPL-2.1-or-later
// The favourites file, list.tt in the program folder: one favourite per line, "lt:", identifier, "/", quality. A change
// is written completely to disk beside the old file before it replaces it: no crash loses a favourite.
#pragma once

#include "base/program_folder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// A longer file counts as one that cannot be read.
inline constexpr std::uint64_t max_favourite_bytes = 1024ULL * 1024;

// The outcomes of adding and removing a favourite.
enum class FavouriteAdded { added, already_there, failed };
enum class FavouriteRemoved { removed, not_there, failed };

// Shown to the user when a change failed.
inline constexpr const wchar_t* favourites_not_saved =
    L"Oblíbené se nepodařilo uložit.\r\nSoubor list.tt je jen pro čtení, používá ho jiný program, nebo je plný disk.";

// A favourite: one line of the file.
struct Favourite {
  std::string_view id;     // six characters; a view of the file's bytes
  std::size_t quality = 1; // 1..5
};
// The favourites in file order. Other lines, and lines with an invalid quality, are skipped. Pure.
[[nodiscard]] std::vector<Favourite> read_favourites(std::string_view bytes);
// Formats a favourite as a line. Pure.
[[nodiscard]] std::wstring favourite_line(const std::wstring& id, const std::wstring& quality);

// User-interface thread. Lines are compared case-insensitively; lines that are not favourites are kept.
class FavouriteFile {
public:
  explicit FavouriteFile(const base::ProgramFolder& folder) : folder_(folder) {}

  // The current bytes of the file; not cached, because the file is short and the user may edit it. Empty when it is
  // missing or cannot be read.
  [[nodiscard]] std::string read() const;

  // Appends a line unless it is already there, and drops empty lines. An empty line counts as added but is not written;
  // a file with nothing left to hold is deleted. `failed` changes nothing: the file cannot be created, read or
  // replaced, or the text is not a single line.
  [[nodiscard]] FavouriteAdded add(const std::wstring& line);

  // Appends those lines that are not there yet, each once, in one writing; how many there were. Nothing when the file
  // cannot be created, read or replaced, or a text is not a single line: then nothing is changed.
  [[nodiscard]] std::optional<std::size_t> add_all(const std::vector<std::wstring>& lines);

  // Removes every such line. The new file begins with an empty line and has no other, even when nothing was found. A
  // missing file is created. `failed` changes nothing.
  [[nodiscard]] FavouriteRemoved remove(const std::wstring& line);

private:
  [[nodiscard]] std::wstring path() const;
  [[nodiscard]] std::optional<std::string> read_bytes() const;

  const base::ProgramFolder& folder_;
};

} // namespace lumotune::stations
