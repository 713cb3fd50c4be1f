// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_lookup.h"

#include "base/code_page_fold.h"
#include "base/record_bytes.h"
#include "stations/station_record.h"

namespace lumotune::stations {

std::wstring StationLookup::RadioInfo(const std::wstring& ID, const std::wstring& FieldName) {
  const auto field = station_field(FieldName);
  if (!field.has_value() || ID.size() != base::station_id_length)
    return {};
  const auto wanted = base::exact_bytes(uses_.codec, ID);
  if (!wanted.has_value() || wanted->size() != base::station_id_length)
    return {};
  const auto lines = uses_.station_files.stations(); // keeps the line alive
  const auto line = lines->last_of(*wanted);
  if (!line.has_value())
    return {};
  const StationRecord record(*line, uses_.codec);
  return *field == StationField::www ? uses_.codec.decode(record.from(*field)) : record.text(*field);
}

} // namespace lumotune::stations
