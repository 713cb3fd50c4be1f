// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/station_record.h"

#include "core/record_bytes.h"

namespace lumotune::directory {
StationRecord::StationRecord(std::string_view line, const platform::AnsiCodec& codec) {
  for (std::size_t position = 1; position < positions; ++position)
    fields_[position] = codec.decode(core::take_field(line));
  fields_[positions] = codec.decode(line);
}

const std::wstring& StationRecord::at(std::size_t position) const {
  return fields_[position <= positions ? position : 0];
}

} // namespace lumotune::directory
