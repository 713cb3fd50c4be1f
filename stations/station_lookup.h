// SPDX-License-Identifier: LGPL-2.1-or-later
// Looks up a station's fields for the main window.
#pragma once

#include "platform/ansi_codec.h"
#include "stations/station_files.h"

#include <string>

namespace lumotune::stations {

// User-interface thread.
class StationLookup {
public:
  struct Uses {
    StationFiles& station_files;
    const platform::AnsiCodec& codec;
  };
  explicit StationLookup(const Uses& uses) : uses_(uses) {}

  // The field (see `station_field`) of the station whose record in radios.tt starts with the six-character identifier,
  // case-insensitively; the last of several records wins. "www" yields everything from that field on. Empty for an
  // unknown station or field name, a missing field or an unreadable file.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& ID, const std::wstring& FieldName);

private:
  Uses uses_;
};

} // namespace lumotune::stations
