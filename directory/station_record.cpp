// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/station_record.h"

namespace lumotune::directory {
namespace {

constexpr std::size_t delimiter_length = 3; // "/@/"

// Looks for the delimiter's middle character: slashes are frequent in addresses, this one is not.
std::size_t find_delimiter(std::string_view text) {
  for (std::size_t at = text.find('@', 1); at != std::string_view::npos; at = text.find('@', at + 1)) {
    if (text[at - 1] == '/' && at + 1 < text.size() && text[at + 1] == '/')
      return at - 1;
  }
  return std::string_view::npos;
}

// Takes the text before the first delimiter off the record; nothing is left of a record without one.
std::string_view peel(std::string_view& record) {
  const std::size_t cut = find_delimiter(record);
  const std::string_view field = record.substr(0, cut);
  record = cut == std::string_view::npos ? std::string_view() : record.substr(cut + delimiter_length);
  return field;
}

} // namespace

std::string_view record_field(std::string_view record, std::size_t number) {
  for (std::size_t i = 0; i < number && !record.empty(); ++i)
    (void)peel(record);
  return peel(record);
}

StationRecord::StationRecord(std::string_view line, const platform::AnsiCodec& codec) {
  for (std::size_t position = 1; position < positions; ++position)
    fields_[position] = codec.decode(peel(line));
  fields_[positions] = codec.decode(line);
}

const std::wstring& StationRecord::at(std::size_t position) const {
  return fields_[position <= positions ? position : 0];
}

} // namespace lumotune::directory
