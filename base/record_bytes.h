// SPDX-License-Identifier: LGPL-2.1-or-later
// The fields of a station's record, as bytes and without a copy. Pure.
#pragma once

#include <cstddef>
#include <string_view>

namespace lumotune::base {

// Every station has an identifier of this many characters, which the record begins with.
inline constexpr std::size_t station_id_length = 6;

// Takes the text before the first delimiter off the record, the delimiter too; nothing is left of a record without one.
[[nodiscard]] std::string_view take_field(std::string_view& record);

// The field of that number, counted from 0; empty where the record has fewer.
[[nodiscard]] std::string_view record_field(std::string_view record, std::size_t number);

// Everything from that field on, whatever delimiters are in it.
[[nodiscard]] std::string_view record_rest(std::string_view record, std::size_t number);

} // namespace lumotune::base
