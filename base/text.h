// SPDX-License-Identifier: LGPL-2.1-or-later
// Text helpers. Positions count characters from 1, as in the file formats. Pure; nothing throws.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

// The delimiter of field-delimited records.
inline constexpr std::wstring_view record_delimiter = L"/@/";

// Lower-case form of ASCII, Latin, Greek and Cyrillic letters, whatever the C locale.
[[nodiscard]] wchar_t fold(wchar_t character);
[[nodiscard]] bool equal_ignoring_case(std::wstring_view a, std::wstring_view b);
[[nodiscard]] bool starts_with_ignoring_case(std::wstring_view text, std::wstring_view prefix);

// The text from a position on, or at most `length` characters of it; empty past the end.
[[nodiscard]] std::wstring_view mid(std::wstring_view text, std::size_t position,
                                    std::size_t length = std::wstring_view::npos);

// Without leading and trailing blanks.
[[nodiscard]] std::wstring_view trimmed(std::wstring_view text, std::wstring_view blanks = L" \t");
[[nodiscard]] std::string_view trimmed(std::string_view text, std::string_view blanks = " \t");

// Splits at each delimiter: n delimiters make n + 1 fields, at most `max_fields`.
[[nodiscard]] std::vector<std::wstring> split_record(std::wstring_view text, std::size_t max_fields = 64);

// Splits at each separator, which must not be empty, in the same way.
[[nodiscard]] std::vector<std::wstring> split_text(std::wstring_view text, std::wstring_view separator,
                                                   std::size_t max_fields = 64);

// Replaces every occurrence of `what` (not empty, case-insensitive) from left to right; replacements are not searched
// again.
[[nodiscard]] std::wstring replace_ignoring_case(std::wstring_view text, std::wstring_view what,
                                                 std::wstring_view with);

// The number at the start of a text: blanks, a sign, digits, a decimal point and digits; 0 when there is none.
[[nodiscard]] double number_value(std::wstring_view text);

// The value of a text that is entirely such a number, blanks around it allowed; nothing for any other text.
[[nodiscard]] std::optional<double> whole_text_number(std::wstring_view text);

// A text that is entirely a number of twips, rounded; nothing for an empty or invalid text or a value beyond any
// screen.
[[nodiscard]] std::optional<int> twips_value(std::wstring_view text);

// 0..100 from the leading number, clamped; 50 when there is none.
[[nodiscard]] int volume_value(std::wstring_view text);

} // namespace lumotune::base
