// SPDX-License-Identifier: LGPL-2.1-or-later
// The fields of a station record, as bytes, without copying. Pure.
#pragma once

#include <cstddef>
#include <string_view>

namespace lumotune::base {

// A record begins with the station's identifier, which has this many characters.
inline constexpr std::size_t station_id_length = 6;

// Removes the first field and its delimiter from the record and returns the field; without a delimiter the whole record
// is taken.
[[nodiscard]] std::string_view take_field(std::string_view& record);

// The field with that number, counted from 0; empty when the record has fewer.
[[nodiscard]] std::string_view record_field(std::string_view record, std::size_t number);

// The rest of the record from that field on, delimiters included.
[[nodiscard]] std::string_view record_rest(std::string_view record, std::size_t number);

} // namespace lumotune::base
