// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_table.h"

#include "base/code_page_fold.h"

namespace lumotune::stations {

// Releases the old lines first: when a changed file is read, only one copy is in memory.
void StationTable::load() {
  List1.reset();
  List1 = uses_.station_files.stations();
}

std::optional<StationRecord> StationTable::last_of(const std::wstring& ID) const {
  const auto wanted = base::exact_bytes(uses_.codec, ID);
  const auto line = List1 && wanted.has_value() ? List1->last_of(*wanted) : std::nullopt;
  return line.has_value() ? std::optional(StationRecord(*line, uses_.codec)) : std::nullopt;
}

std::wstring StationTable::RadioInfo(const std::wstring& IDradio, const std::wstring& What) const {
  const auto field = station_field(What);
  if (!field.has_value() || *field == StationField::category || *field == StationField::www)
    return {};
  const auto record = last_of(IDradio);
  return record.has_value() ? record->text(*field) : std::wstring();
}

} // namespace lumotune::stations
