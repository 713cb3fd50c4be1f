// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory's stations: a snapshot of the lines of radios.tt as last loaded.
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

  // The file part of NactiRadia: List1 and List6 become the lines of radios.tt, empty when it cannot be read. Lines
  // still held elsewhere do not change.
  void load();

  // List1, all lines in file order; null before the first load.
  [[nodiscard]] std::shared_ptr<const StationLines> lines() const { return List1; }

  // The last line that starts with the six-character identifier, case-insensitively; nothing when there is none. An
  // empty identifier never matches, even if the file has empty lines. The result is a view of `lines`.
  [[nodiscard]] std::optional<StationRecord> last_of(const std::wstring& ID) const;

  // A field of that record: "name", "k1".."k5", "u1".."u5". Empty for any other name and for an unknown station. For
  // the directory itself; its windows use the main window's look-up, which knows more names.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& IDradio, const std::wstring& What) const;

private:
  Uses uses_;
  std::shared_ptr<const StationLines> List1; // also List6, all stations: the same lines whenever List1 is filled
};

} // namespace lumotune::stations
