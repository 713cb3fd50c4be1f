// SPDX-License-Identifier: LGPL-2.1-or-later
// The look-up of a station's fields in the station database file, radios.tt of the program folder.
#pragma once

#include "base/code_page_fold.h"
#include "platform/ansi_codec.h"
#include "platform/files.h"
#include "platform/machine.h"

#include <string>
#include <string_view>

namespace lumotune::stations {

// Which field of the record a name asks for: "name", "kk", "u1".."u5", "k1".."k5", "www"; -1 for any other name.
[[nodiscard]] int station_field_index(std::wstring_view FieldName);

// User-interface thread.
class StationLookup {
public:
  struct Uses {
    const platform::Files& files;
    const platform::AnsiCodec& codec;
    const platform::Machine& machine;
  };
  explicit StationLookup(const Uses& uses);

  // The field of the station whose record starts with those six characters, letter case ignored; the last one of
  // several wins. Empty for an unknown station, an unknown name, a missing field or a file that cannot be read. The
  // file is read anew at every call: the directory may have replaced it.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& ID, const std::wstring& FieldName);

private:
  [[nodiscard]] std::string_view last_record(std::string_view wanted) const;

  Uses uses_;
  std::string List3; // the file's bytes; the room is used again
  base::CodePageFold folding_;
};

} // namespace lumotune::stations
