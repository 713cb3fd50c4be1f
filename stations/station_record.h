// SPDX-License-Identifier: LGPL-2.1-or-later
// Fields of a station record, a line of radios.tt. Fields that a record lacks are empty. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace lumotune::stations {

// Fields as the list needs them, counted from 0.
inline constexpr std::size_t field_id = 0;
inline constexpr std::size_t field_name = 1;
inline constexpr std::size_t field_marker = 2; // Pridavatel
inline constexpr std::size_t field_country = 4;
inline constexpr std::size_t field_category = 5; // "kk"

// A record peeled from the left, as the details need it. Positions count from 1: 1 identifier, 2 name, 5 country,
// 7..11 addresses, 12..16 bit rates, 17 web address (cut at a further delimiter), 18 everything after that delimiter.
class StationRecord {
public:
  static constexpr std::size_t positions = 18;

  StationRecord() = default;
  StationRecord(std::string_view line, const platform::AnsiCodec& codec);

  [[nodiscard]] const std::wstring& at(std::size_t position) const; // empty outside 1..18
  [[nodiscard]] const std::wstring& stream_address(std::size_t quality) const { return at(6 + quality); } // 1..5
  [[nodiscard]] const std::wstring& bit_rate(std::size_t quality) const { return at(11 + quality); }      // 1..5

private:
  std::array<std::wstring, positions + 1> fields_; // the first one stays empty
};

} // namespace lumotune::stations
