// SPDX-License-Identifier: LGPL-2.1-or-later
// A station record, one line of radios.tt: the position and the look-up name of each field. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::stations {

// The fields of a line in order. The only place that knows the layout.
enum class StationField : std::size_t {
  id,
  name,
  marker, // Pridavatel: "tip" makes the row bold; what follows the fourth character is shown after the name
  carried,
  country,  // Zeme
  category, // "kk": six characters of category, then the subcategory's
  u1,       // stream addresses for qualities 1 to 5
  u2,
  u3,
  u4,
  u5,
  k1, // their bit rates in kbit/s; empty for a quality the station does not offer
  k2,
  k3,
  k4,
  k5,
  www,        // the station's web page
  description // everything after the delimiter that follows the web page
};

// The fields for a quality 1..5.
[[nodiscard]] constexpr StationField address_of(std::size_t quality) {
  return static_cast<StationField>(static_cast<std::size_t>(StationField::u1) + quality - 1);
}
[[nodiscard]] constexpr StationField bit_rate_of(std::size_t quality) {
  return static_cast<StationField>(static_cast<std::size_t>(StationField::k1) + quality - 1);
}

// Look-up names: "name", "kk", "u1".."u5", "k1".."k5", "www", case-insensitive; nothing for any other.
[[nodiscard]] std::optional<StationField> station_field(std::wstring_view FieldName);

// Gives access to a line by fields. It is a view: the line and the codec must outlive it. Missing fields are empty.
class StationRecord {
public:
  StationRecord(std::string_view line, const platform::AnsiCodec& codec) : line_(line), codec_(&codec) {}

  // The field's bytes up to the next delimiter; for the description, the rest of the line.
  [[nodiscard]] std::string_view operator[](StationField field) const;
  // The bytes from that field to the end of the line, delimiters included.
  [[nodiscard]] std::string_view from(StationField field) const;

  [[nodiscard]] std::wstring text(StationField field) const { return codec_->decode((*this)[field]); }

private:
  std::string_view line_;
  const platform::AnsiCodec* codec_;
};

} // namespace lumotune::stations
