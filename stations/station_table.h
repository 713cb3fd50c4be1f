// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory's stations in memory: every line of radios.tt, and how a station is found among them.
#pragma once

#include "base/code_page_fold.h"
#include "platform/ansi_codec.h"
#include "platform/files.h"
#include "platform/machine.h"
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
    const platform::Files& files;
    const platform::AnsiCodec& codec;
    const platform::Machine& machine;
  };
  explicit StationTable(const Uses& uses);

  // The file part of NactiRadia: List1 and List6 become the lines of radios.tt; none when it cannot be read. Lines that
  // somebody still holds stay as they were for him.
  void load();

  // List1, all lines in file order.
  [[nodiscard]] std::shared_ptr<const StationLines> lines() const { return List1; }

  // The last line whose first six characters equal the identifier, letter case ignored; nothing when there is none. An
  // empty identifier is no station's, whatever empty lines the file has.
  [[nodiscard]] std::optional<StationRecord> last_of(const std::wstring& ID) const;

  // A field of that record: "name", "k1".."k5", "u1".."u5". Empty for any other word and for an unknown station.
  [[nodiscard]] std::wstring RadioInfo(const std::wstring& IDradio, const std::wstring& What) const;

private:
  [[nodiscard]] std::optional<std::string_view> last_line(const StationLines& lines, const std::wstring& ID) const;

  Uses uses_;
  base::CodePageFold fold_;
  std::shared_ptr<StationLines> List1;        // the stations of the list
  const std::shared_ptr<StationLines>& List6; // all stations: the same lines whenever List1 is filled, so one copy
};

} // namespace lumotune::stations
