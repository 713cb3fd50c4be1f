// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_record.h"

#include "base/record_bytes.h"

namespace lumotune::stations {
StationRecord::StationRecord(std::string_view line, const platform::AnsiCodec& codec) {
  for (std::size_t position = 1; position < positions; ++position)
    fields_[position] = codec.decode(base::take_field(line));
  fields_[positions] = codec.decode(line);
}

const std::wstring& StationRecord::at(std::size_t position) const {
  return fields_[position <= positions ? position : 0];
}

} // namespace lumotune::stations
