// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_record.h"

#include "base/record_bytes.h"
#include "base/text.h"

#include <utility>

namespace lumotune::stations {
namespace {

using enum StationField;

constexpr std::pair<std::wstring_view, StationField> words[] = {
    {L"name", name}, {L"kk", category}, {L"u1", u1}, {L"u2", u2}, {L"u3", u3}, {L"u4", u4},  {L"u5", u5},
    {L"k1", k1},     {L"k2", k2},       {L"k3", k3}, {L"k4", k4}, {L"k5", k5}, {L"www", www}};

} // namespace

std::optional<StationField> station_field(std::wstring_view FieldName) {
  for (const auto& [word, field] : words) {
    if (base::equal_ignoring_case(FieldName, word))
      return field;
  }
  return std::nullopt;
}

std::string_view StationRecord::operator[](StationField field) const {
  std::string_view rest = from(field);
  return field == description ? rest : base::take_field(rest);
}

std::string_view StationRecord::from(StationField field) const {
  return base::record_rest(line_, static_cast<std::size_t>(field));
}

} // namespace lumotune::stations
