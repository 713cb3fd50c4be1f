// SPDX-License-Identifier: LGPL-2.1-or-later
// Limits of a station file and of a list that becomes one.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lumotune::stations {

// A longer file counts as unreadable.
inline constexpr std::uint64_t max_station_bytes = 256ULL * 1024 * 1024;
// So does one with more lines.
inline constexpr std::size_t max_station_lines = 2'000'000;

} // namespace lumotune::stations
