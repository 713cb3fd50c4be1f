// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_lookup.h"

#include "base/line_walk.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "stations/station_limits.h"

namespace lumotune::stations {
namespace {

constexpr int www_index = 16;

} // namespace

int station_field_index(std::wstring_view FieldName) {
  if (base::equal_ignoring_case(FieldName, L"name"))
    return 1;
  if (base::equal_ignoring_case(FieldName, L"kk"))
    return 5;
  if (base::equal_ignoring_case(FieldName, L"www"))
    return www_index;
  const bool numbered = FieldName.size() == 2 && FieldName[1] >= L'1' && FieldName[1] <= L'5';
  if (!numbered)
    return -1;
  const int number = FieldName[1] - L'1';
  if (base::fold(FieldName[0]) == L'u')
    return 6 + number;
  return base::fold(FieldName[0]) == L'k' ? 11 + number : -1;
}

StationLookup::StationLookup(const Uses& uses) : uses_(uses), folding_(uses.codec) {}

// One pass over the bytes, of which none is copied.
std::string_view StationLookup::last_record(std::string_view wanted) const {
  std::string_view found;
  const std::uint64_t key = folding_.id_key(wanted);
  for (base::LineWalk walk(List3, max_station_lines); walk.next();) {
    const std::string_view line = walk.line();
    if (line.size() >= base::station_id_length && folding_.id_key(line) == key)
      found = line;
  }
  return found;
}

std::wstring StationLookup::RadioInfo(const std::wstring& ID, const std::wstring& FieldName) {
  const int index = station_field_index(FieldName);
  if (index < 0 || ID.size() != base::station_id_length)
    return {};
  if (!uses_.files.read_at_most(uses_.machine.program_folder() + L"\\radios.tt", List3, max_station_bytes))
    return {};
  const auto wanted = base::exact_bytes(uses_.codec, ID);
  if (!wanted.has_value() || wanted->size() != base::station_id_length)
    return {};
  const std::string_view record = last_record(*wanted);
  // The last field is everything after the sixteenth delimiter.
  const auto number = static_cast<std::size_t>(index);
  return uses_.codec.decode(index == www_index ? base::record_rest(record, number)
                                               : base::record_field(record, number));
}

} // namespace lumotune::stations
