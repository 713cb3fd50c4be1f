// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_table.h"

#include "base/record_bytes.h"
#include "stations/file_names.h"
#include "stations/station_lookup.h"

namespace lumotune::stations {

StationTable::StationTable(const Uses& uses)
    : uses_(uses), fold_(uses.codec), List1(std::make_shared<StationLines>()), List6(List1) {}

// The old lines' room is used again unless the list still shows them.
void StationTable::load() {
  if (List1.use_count() > 1)
    List1 = std::make_shared<StationLines>();
  List1->read(uses_.files, uses_.machine.program_folder() + L"\\" + stations_file);
}

std::optional<std::string_view> StationTable::last_line(const StationLines& lines, const std::wstring& ID) const {
  constexpr std::size_t id_length = 6;
  const auto wanted = base::exact_bytes(uses_.codec, ID);
  std::optional<std::string_view> found;
  for (std::size_t i = 0; wanted.has_value() && !wanted->empty() && i < lines.count(); ++i) {
    const std::string_view line = lines.line(i);
    if (fold_.equal(line.substr(0, id_length), *wanted))
      found = line;
  }
  return found;
}

std::optional<StationRecord> StationTable::last_of(const std::wstring& ID) const {
  const auto line = last_line(*List1, ID);
  if (!line.has_value())
    return std::nullopt;
  return StationRecord(*line, uses_.codec);
}

std::wstring StationTable::RadioInfo(const std::wstring& IDradio, const std::wstring& What) const {
  const int index = stations::station_field_index(What);
  const bool answered =
      index >= 0 && stations::station_field_index(L"kk") != index && stations::station_field_index(L"www") != index;
  const auto line = answered ? last_line(*List6, IDradio) : std::nullopt;
  return line.has_value() ? uses_.codec.decode(base::record_field(*line, static_cast<std::size_t>(index)))
                          : std::wstring();
}

} // namespace lumotune::stations
