// SPDX-License-Identifier: LGPL-2.1-or-later
// Helpers of program text. Positions count characters from 1, as in the formats that use them. Pure; nothing throws.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

// The delimiter of field-delimited records.
inline constexpr std::wstring_view record_delimiter = L"/@/";

// Small and capital letter become one: ASCII, Latin, Greek and Cyrillic letters, whatever the C locale.
[[nodiscard]] wchar_t fold(wchar_t character);
[[nodiscard]] bool equal_ignoring_case(std::wstring_view a, std::wstring_view b);
[[nodiscard]] bool starts_with_ignoring_case(std::wstring_view text, std::wstring_view prefix);

// The text from a position on, or at most `length` characters of it; empty past the end.
[[nodiscard]] std::wstring_view mid(std::wstring_view text, std::size_t position,
                                    std::size_t length = std::wstring_view::npos);

// Without the blanks around it.
[[nodiscard]] std::wstring_view trimmed(std::wstring_view text, std::wstring_view blanks = L" \t");
[[nodiscard]] std::string_view trimmed(std::string_view text, std::string_view blanks = " \t");

// Cuts before each delimiter and goes on after it: n delimiters make n + 1 fields, at most `max_fields`.
[[nodiscard]] std::vector<std::wstring> split_record(std::wstring_view text, std::size_t max_fields = 64);

// Cuts before each separator (not empty) and goes on after it, in the same way.
[[nodiscard]] std::vector<std::wstring> split_text(std::wstring_view text, std::wstring_view separator,
                                                   std::size_t max_fields = 64);

// Every occurrence of `what` (not empty, letter case ignored) replaced, from left to right; what was put in is not
// looked at again.
[[nodiscard]] std::wstring replace_ignoring_case(std::wstring_view text, std::wstring_view what,
                                                 std::wstring_view with);

// The number that a text begins with: blanks, a sign, digits, a decimal point and digits; 0 where it begins with none.
[[nodiscard]] double number_value(std::wstring_view text);

// A whole text that is such a number, with blanks around it; nothing for an empty or any other text.
[[nodiscard]] std::optional<double> whole_text_number(std::wstring_view text);

// A whole text that is a number of twips, rounded; nothing for an empty or bad text or one beyond any screen.
[[nodiscard]] std::optional<int> twips_value(std::wstring_view text);

// 0..100 from the leading digits, clamped; 50 where there are none.
[[nodiscard]] int volume_value(std::wstring_view text);

} // namespace lumotune::base
