// SPDX-License-Identifier: LGPL-2.1-or-later
// A station record, a line of radios.tt: which field is where, and by which word it is asked for. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::stations {

// The layout of a line: its fields in their order. Nothing else knows where a field is.
enum class StationField : std::size_t {
  id,
  name,
  marker, // Pridavatel: "tip" makes the row bold; what follows the fourth character is shown behind the name
  carried,
  country,  // Zeme
  category, // "kk": six characters of the category, then those of its subcategory
  u1,       // stream addresses of the qualities 1 to 5
  u2,
  u3,
  u4,
  u5,
  k1, // their bit rates in kbit/s, empty for a quality that the station does not have
  k2,
  k3,
  k4,
  k5,
  www,        // the station's web page
  description // everything behind a delimiter that follows the web page
};

// The fields of a quality 1..5.
[[nodiscard]] constexpr StationField address_of(std::size_t quality) {
  return static_cast<StationField>(static_cast<std::size_t>(StationField::u1) + quality - 1);
}
[[nodiscard]] constexpr StationField bit_rate_of(std::size_t quality) {
  return static_cast<StationField>(static_cast<std::size_t>(StationField::k1) + quality - 1);
}

// What a look-up is asked for: "name", "kk", "u1".."u5", "k1".."k5", "www", letter case ignored; nothing for any other
// word.
[[nodiscard]] std::optional<StationField> station_field(std::wstring_view FieldName);

// A line by its fields. It is a view: the line and the codec outlive it. Fields that the line lacks are empty.
class StationRecord {
public:
  StationRecord(std::string_view line, const platform::AnsiCodec& codec) : line_(line), codec_(&codec) {}

  // The bytes up to the next delimiter; those of the description are the rest of the line.
  [[nodiscard]] std::string_view operator[](StationField field) const;
  // The bytes of the field and of all that follow, whatever delimiters are among them.
  [[nodiscard]] std::string_view from(StationField field) const;

  [[nodiscard]] std::wstring text(StationField field) const { return codec_->decode((*this)[field]); }

private:
  std::string_view line_;
  const platform::AnsiCodec* codec_;
};

} // namespace lumotune::stations
