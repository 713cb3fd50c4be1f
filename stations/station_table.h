// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory's stations: the lines of radios.tt as they were when it last loaded them, whatever the file holds now.
#pragma once

#include "platform/ansi_codec.h"
#include "stations/station_files.h"
#include "stations/station_lines.h"
#include "stations/station_record.h"

#include <memory>
#include <optional>
#include <string>

namespace lumotune::stations {

// User-interface thread. Nothing throws or shows a message.
class StationTable {
public:
  struct Uses {
    StationFiles& station_files;
    const platform::AnsiCodec& codec;
  };
  explicit StationTable(const Uses& uses) : uses_(uses) {}

  // The file part of NactiRadia: List1 and List6 become the lines of radios.tt; none when it cannot be read. Lines that
  // somebody still holds stay as they were for him.
  void load();

  // List1, all lines in file order; null before the first load.
  [[nodiscard]] std::shared_ptr<const StationLines> lines() const { return List1; }

  // The last line whose first six characters equal the identifier, letter case ignored; nothing when there is none. An
  // empty identifier is no station's, whatever empty lines the file has. A view of `lines`.
  [[nodiscard]] std::optional<StationRecord> last_of(const std::wstring& ID) const;

  // A field of that record: "name", "k1".."k5", "u1".."u5". Empty for any other word and for an unknown station. The
  // directory's own look-up; its windows ask the main window's, which knows more words.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& IDradio, const std::wstring& What) const;

private:
  Uses uses_;
  std::shared_ptr<const StationLines> List1; // and List6, all stations: the same lines whenever List1 is filled
};

} // namespace lumotune::stations
