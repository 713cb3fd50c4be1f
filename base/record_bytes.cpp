// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/record_bytes.h"

namespace lumotune::base {
namespace {

constexpr std::size_t delimiter_length = 3; // "/@/"

// Searches for the middle character of the delimiter: slashes are frequent in addresses, "@" is not.
std::size_t find_delimiter(std::string_view text) {
  for (std::size_t at = text.find('@', 1); at != std::string_view::npos; at = text.find('@', at + 1)) {
    if (text[at - 1] == '/' && at + 1 < text.size() && text[at + 1] == '/')
      return at - 1;
  }
  return std::string_view::npos;
}

} // namespace

std::string_view take_field(std::string_view& record) {
  const std::size_t cut = find_delimiter(record);
  const std::string_view field = record.substr(0, cut);
  record = cut == std::string_view::npos ? std::string_view() : record.substr(cut + delimiter_length);
  return field;
}

std::string_view record_rest(std::string_view record, std::size_t number) {
  for (std::size_t i = 0; i < number && !record.empty(); ++i)
    (void)take_field(record);
  return record;
}

std::string_view record_field(std::string_view record, std::size_t number) {
  std::string_view rest = record_rest(record, number);
  return take_field(rest);
}

} // namespace lumotune::base
