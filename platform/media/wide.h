// SPDX-License-Identifier: LGPL-2.1-or-later
// Converts between program text and the UTF-8 that FFmpeg uses. Pure functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

[[nodiscard]] std::string to_utf8(std::wstring_view text);
// Nothing for invalid UTF-8: overlong forms, surrogates, code points past U+10FFFF.
[[nodiscard]] std::optional<std::wstring> from_utf8(std::string_view bytes);
void append_character(std::wstring& text, char32_t character); // as a surrogate pair if wchar_t has 16 bits

} // namespace lumotune::media
