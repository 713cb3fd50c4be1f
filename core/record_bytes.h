// SPDX-License-Identifier: LGPL-2.1-or-later
// The text files of stations as bytes, one byte a character: lines, identifiers and fields, without a copy. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumotune::core {

inline constexpr std::size_t station_id_length = 6;

// Letter case ignored by the code page: the byte of a capital letter becomes the byte of its small one.
class ByteFolding {
public:
  explicit ByteFolding(const platform::AnsiCodec& codec);

  [[nodiscard]] bool equal(std::string_view a, std::string_view b) const;
  [[nodiscard]] bool starts_with(std::string_view bytes, std::string_view prefix) const;

  // One number for all spellings of an identifier, which has `station_id_length` bytes.
  [[nodiscard]] std::uint64_t id_key(std::string_view id) const {
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < station_id_length; ++i)
      key = key << 8 | folded_[static_cast<unsigned char>(id[i])];
    return key;
  }

private:
  std::array<unsigned char, 256> folded_{};
};

// The field of a record, counted from 0; empty where the record has fewer.
[[nodiscard]] std::string_view record_field(std::string_view record, int index);

// Calls `visit` with each line. LF, CR LF or CR end one; the empty line after a pair is visited too, which nobody minds
// who looks for lines with something in them.
template <typename Visit>
void for_each_line(std::string_view bytes, Visit visit) {
  while (!bytes.empty()) {
    // The system's search is quick, a loop over the bytes is not.
    const std::size_t feed = bytes.find('\n');
    std::string_view part = bytes.substr(0, feed);
    bytes = feed == std::string_view::npos ? std::string_view() : bytes.substr(feed + 1);
    for (std::size_t end = part.find('\r'); end != std::string_view::npos; end = part.find('\r')) {
      visit(part.substr(0, end));
      part.remove_prefix(end + 1);
    }
    visit(part);
  }
}

} // namespace lumotune::core
