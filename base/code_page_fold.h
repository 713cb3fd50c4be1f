// SPDX-License-Identifier: LGPL-2.1-or-later
// Case-insensitive comparison of text in the system's code page. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::base {

// Converts eight ASCII characters at once to lower case; none may have its top bit set.
[[nodiscard]] constexpr std::uint64_t small_letters(std::uint64_t word) {
  constexpr std::uint64_t each_byte = 0x0101010101010101ULL;
  const std::uint64_t above_at = word + (0x80 - 'A') * each_byte;
  const std::uint64_t above_z = word + (0x80 - 'Z' - 1) * each_byte;
  return word | (above_at & ~above_z & 0x80 * each_byte) >> 2;
}
[[nodiscard]] constexpr bool all_ascii(std::uint64_t word) {
  return (word & 0x8080808080808080ULL) == 0;
}

class CodePageFold {
public:
  explicit CodePageFold(const platform::AnsiCodec& codec);

  // The byte of the same character in lower case.
  [[nodiscard]] std::uint8_t fold(char byte) const { return folded_[static_cast<std::uint8_t>(byte)]; }
  [[nodiscard]] bool equal(std::string_view a, std::string_view b) const;
  [[nodiscard]] bool starts_with(std::string_view text, std::string_view prefix) const;

private:
  std::array<std::uint8_t, 256> folded_{};
};

// The text encoded without loss; nothing when the code page lacks one of its characters.
[[nodiscard]] std::optional<std::string> exact_bytes(const platform::AnsiCodec& codec, const std::wstring& text);

// Folds ASCII letters only; for the markers in the files.
[[nodiscard]] bool starts_with_marker(std::string_view text, std::string_view marker);

} // namespace lumotune::base
