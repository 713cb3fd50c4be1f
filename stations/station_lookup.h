// SPDX-License-Identifier: LGPL-2.1-or-later
// The main window's look-up of a station's fields.
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

  // A field by its word (see `station_field`) of the station whose record in radios.tt starts with those six
  // characters, letter case ignored; the last one of several wins. "www" is everything from that field on. Empty for an
  // unknown station, an unknown word, a missing field or a file that cannot be read.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& ID, const std::wstring& FieldName);

private:
  Uses uses_;
};

} // namespace lumotune::stations
