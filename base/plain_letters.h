// SPDX-License-Identifier: LGPL-2.1-or-later
// Letters without case and diacritics, for searching: "Žižkov" is found by "zizkov". Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::base {

// Lower case without diacritics for every Latin letter of Central and Western European languages; ligatures and the
// sharp s become two letters. Other characters are only put in lower case.
[[nodiscard]] std::wstring plain_letters(std::wstring_view text);

// The same for text in the system's code page, through a table.
class PlainLetters {
public:
  explicit PlainLetters(const platform::AnsiCodec& codec);

  void append(std::string& to, std::string_view bytes) const;
  // What is typed, as `append` makes it of stored text; nothing when no stored text can contain it.
  [[nodiscard]] std::optional<std::string> of(const std::wstring& typed) const;

private:
  const platform::AnsiCodec& codec_;
  std::array<std::array<char, 2>, 256> letters_{};
  std::array<std::uint8_t, 256> lengths_{};
};

} // namespace lumotune::base
