// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace lumotune::base {
namespace {

// Larger coordinates are rejected: no monitor is that far away.
constexpr double farthest_twips = 2000000.0;

bool between(std::uint32_t code, std::uint32_t first, std::uint32_t last) {
  return code >= first && code <= last;
}

bool is_digit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

// In these blocks each capital letter is directly followed by its lower-case form.
bool is_capital_of_pair(std::uint32_t code) {
  if (between(code, 0x100, 0x137) || between(code, 0x14a, 0x177) || between(code, 0x460, 0x481) ||
      between(code, 0x48a, 0x4bf) || between(code, 0x4d0, 0x52f))
    return code % 2 == 0;
  return (between(code, 0x139, 0x148) || between(code, 0x179, 0x17e) || between(code, 0x4c1, 0x4ce)) && code % 2 == 1;
}

// The length of the number at the start of the text, which has no leading blanks.
std::size_t number_length(std::wstring_view text) {
  std::size_t at = !text.empty() && (text[0] == L'-' || text[0] == L'+') ? 1 : 0;
  std::size_t digits = 0;
  while (at < text.size() && is_digit(text[at])) {
    ++at;
    ++digits;
  }
  if (at < text.size() && text[at] == L'.') {
    ++at;
    while (at < text.size() && is_digit(text[at])) {
      ++at;
      ++digits;
    }
  }
  return digits == 0 ? 0 : at;
}

template <typename View>
View without(View text, View blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

} // namespace

wchar_t fold(wchar_t character) {
  const auto code = static_cast<std::uint32_t>(character);
  if (between(code, L'A', L'Z'))
    return static_cast<wchar_t>(code + 32);
  if (code < 0xc0)
    return character;
  if (between(code, 0xc0, 0xde) && code != 0xd7)
    return static_cast<wchar_t>(code + 32);
  if (code == 0x130)
    return character; // I with a dot: its lower case is i, which is that of the plain I already
  if (code == 0x178)
    return static_cast<wchar_t>(0xff);
  if (is_capital_of_pair(code))
    return static_cast<wchar_t>(code + 1);
  if (between(code, 0x391, 0x3ab) && code != 0x3a2)
    return static_cast<wchar_t>(code + 32);
  if (code == 0x386)
    return static_cast<wchar_t>(0x3ac);
  if (between(code, 0x388, 0x38a))
    return static_cast<wchar_t>(code + 37);
  if (code == 0x38c)
    return static_cast<wchar_t>(0x3cc);
  if (code == 0x38e || code == 0x38f)
    return static_cast<wchar_t>(code + 63);
  if (between(code, 0x410, 0x42f))
    return static_cast<wchar_t>(code + 32);
  if (between(code, 0x400, 0x40f))
    return static_cast<wchar_t>(code + 80);
  return character;
}

bool equal_ignoring_case(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](wchar_t left, wchar_t right) { return fold(left) == fold(right); });
}

bool starts_with_ignoring_case(std::wstring_view text, std::wstring_view prefix) {
  return text.size() >= prefix.size() && equal_ignoring_case(text.substr(0, prefix.size()), prefix);
}

std::wstring_view mid(std::wstring_view text, std::size_t position, std::size_t length) {
  if (position == 0 || position > text.size())
    return {};
  return text.substr(position - 1, length);
}

std::vector<std::wstring> split_text(std::wstring_view text, std::wstring_view separator, std::size_t max_fields) {
  std::vector<std::wstring> fields;
  while (fields.size() < max_fields) {
    const std::size_t cut = text.find(separator);
    fields.emplace_back(text.substr(0, cut));
    if (cut == std::wstring_view::npos)
      break;
    text.remove_prefix(cut + separator.size());
  }
  return fields;
}

std::wstring_view trimmed(std::wstring_view text, std::wstring_view blanks) {
  return without(text, blanks);
}

std::string_view trimmed(std::string_view text, std::string_view blanks) {
  return without(text, blanks);
}

std::vector<std::wstring> split_record(std::wstring_view text, std::size_t max_fields) {
  return split_text(text, record_delimiter, max_fields);
}

std::wstring replace_ignoring_case(std::wstring_view text, std::wstring_view what, std::wstring_view with) {
  std::wstring result;
  while (!text.empty()) {
    if (starts_with_ignoring_case(text, what)) {
      result += with;
      text.remove_prefix(what.size());
    } else {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

double number_value(std::wstring_view text) {
  text = trimmed(text);
  text = text.substr(0, number_length(text));
  double number = 0;
  double place = 0; // 0 before the decimal point, then the weight of the next digit
  for (const wchar_t character : text) {
    if (character == L'.') {
      place = 0.1;
    } else if (is_digit(character)) {
      const double digit = character - L'0';
      number = place > 0 ? number + digit * place : number * 10 + digit;
      place /= 10;
    }
  }
  return !text.empty() && text[0] == L'-' ? -number : number;
}

std::optional<double> whole_text_number(std::wstring_view text) {
  text = trimmed(text);
  if (text.empty() || number_length(text) != text.size())
    return std::nullopt;
  return number_value(text);
}

std::optional<int> twips_value(std::wstring_view text) {
  const auto number = whole_text_number(text);
  if (!number.has_value() || !(std::fabs(*number) <= farthest_twips))
    return std::nullopt;
  return static_cast<int>(std::lround(*number));
}

int volume_value(std::wstring_view text) {
  text = trimmed(text);
  if (number_length(text) == 0)
    return 50;
  return static_cast<int>(std::lround(std::clamp(number_value(text), 0.0, 100.0)));
}

} // namespace lumotune::base
