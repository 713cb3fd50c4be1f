// SPDX-License-Identifier: LGPL-2.1-or-later
// Windows-1250, the code page of Czech texts, as a table: for machines and threads without the system's own conversion.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lumotune::platform {

// Any thread; never fails. Every byte has one character; a character without a byte becomes '?'.
[[nodiscard]] wchar_t decode_1250(unsigned char byte);
[[nodiscard]] std::wstring decode_1250(std::string_view bytes);
[[nodiscard]] std::string encode_1250(std::wstring_view text);

} // namespace lumotune::platform
