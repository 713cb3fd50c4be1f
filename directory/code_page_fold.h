// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes of the system's code page compared without regard to letter case. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::directory {

class CodePageFold {
public:
  explicit CodePageFold(const platform::AnsiCodec& codec);

  // The byte whose character is the small letter of this byte's character.
  [[nodiscard]] std::uint8_t fold(char byte) const { return folded_[static_cast<std::uint8_t>(byte)]; }
  [[nodiscard]] bool equal(std::string_view a, std::string_view b) const;
  [[nodiscard]] bool starts_with(std::string_view text, std::string_view prefix) const;

private:
  std::array<std::uint8_t, 256> folded_{};
};

// A text as the bytes that stand for exactly it; nothing when the code page lacks one of its characters.
[[nodiscard]] std::optional<std::string> exact_bytes(const platform::AnsiCodec& codec, const std::wstring& text);

// ASCII letters only, for the markers of the files.
[[nodiscard]] bool starts_with_marker(std::string_view text, std::string_view marker);

} // namespace lumotune::directory
