// SPDX-License-Identifier: LGPL-2.1-or-later
// Program text and the UTF-8 that FFmpeg speaks. Any thread, pure.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

[[nodiscard]] std::string to_utf8(std::wstring_view text);
// Nothing for bytes that are not strictly UTF-8: overlong forms, halves of pairs, numbers past the last character.
[[nodiscard]] std::optional<std::wstring> from_utf8(std::string_view bytes);
void append_character(std::wstring& text, char32_t character); // as a pair of halves where wchar_t has 16 bits

} // namespace lumotune::media
