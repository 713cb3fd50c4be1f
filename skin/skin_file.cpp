// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_file.h"

#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace lumotune::skin {
namespace {

// A line of a hostile file may be huge; the longest control line has ten fields.
constexpr std::size_t max_fields = 64;

// Blanks around it and a sign are allowed, nothing else. One that is out of range counts as the end of the range.
std::optional<int> whole_number(std::wstring_view text) {
  text = base::trimmed(text, L" ");
  const bool negative = !text.empty() && text.front() == L'-';
  if (!text.empty() && (negative || text.front() == L'+'))
    text.remove_prefix(1);
  if (text.empty())
    return std::nullopt;
  constexpr std::int64_t beyond = std::int64_t{std::numeric_limits<int>::max()} + 1;
  std::int64_t number = 0;
  for (const wchar_t character : text) {
    if (character < L'0' || character > L'9')
      return std::nullopt;
    number = std::min(number * 10 + (character - L'0'), beyond);
  }
  return static_cast<int>(negative ? -number : std::min(number, beyond - 1));
}

} // namespace

std::optional<SkinLine> SkinLine::parse(std::wstring_view line) {
  if (line.find(L'|') == std::wstring_view::npos)
    return std::nullopt;
  SkinLine parsed;
  std::size_t start = 0;
  while (parsed.fields_.size() < max_fields) {
    const std::size_t bar = line.find(L'|', start);
    parsed.fields_.emplace_back(line.substr(start, bar == std::wstring_view::npos ? bar : bar - start));
    if (bar == std::wstring_view::npos)
      break;
    start = bar + 1;
  }
  if (parsed.names(L"Author"))
    return std::nullopt;
  return parsed;
}

const std::wstring& SkinLine::field(std::size_t index) const {
  static const std::wstring missing;
  return index < fields_.size() ? fields_[index] : missing;
}

bool SkinLine::says(std::size_t index, std::wstring_view word) const {
  return base::equal_ignoring_case(field(index), word);
}

bool SkinLine::blank(std::size_t index) const {
  return base::trimmed(field(index)).empty();
}

std::optional<int> SkinLine::number(std::size_t index) const {
  return whole_number(field(index));
}

std::optional<int> SkinLine::twips(std::size_t index) const {
  const auto given = number(index);
  return given ? std::optional(std::clamp(*given, -max_twips, max_twips)) : std::nullopt;
}

std::optional<int> SkinLine::size(std::size_t index) const {
  const auto given = number(index);
  return given ? std::optional(std::clamp(*given, 0, max_twips)) : std::nullopt;
}

std::optional<platform::Colour> SkinLine::colour(std::size_t index) const {
  constexpr int white = 0xffffff;
  const auto given = number(index);
  if (!given)
    return std::nullopt;
  if (*given < 0)
    return platform::Colour{platform::system_colour_flag | (static_cast<std::uint32_t>(*given) & 0xffU)};
  return platform::Colour{static_cast<std::uint32_t>(std::min(*given, white))};
}

std::vector<std::wstring> split_lines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(L"\r\n");
    lines.emplace_back(text.substr(0, end));
    if (end == std::wstring_view::npos)
      break;
    const bool pair = text[end] == L'\r' && end + 1 < text.size() && text[end + 1] == L'\n';
    text.remove_prefix(end + (pair ? 2 : 1));
  }
  return lines;
}

} // namespace lumotune::skin
