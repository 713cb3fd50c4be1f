// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/list_row.h"

#include <cstddef>

namespace lumotune::platform {
namespace {

// `percent` of `other` in `one`.
std::uint32_t mixed(std::uint32_t one, std::uint32_t other, std::uint32_t percent) {
  std::uint32_t result = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const std::uint32_t a = one >> shift & 0xffU;
    const std::uint32_t b = other >> shift & 0xffU;
    result |= (a * (100 - percent) + b * percent + 50) / 100 << shift;
  }
  return result;
}

std::wstring_view without_last_blanks(std::wstring_view text) {
  return text.substr(0, text.find_last_not_of(L' ') + 1);
}

} // namespace

RowColours row_colours(std::uint32_t background, std::uint32_t text, bool selected) {
  constexpr std::uint32_t quiet = 14;
  constexpr std::uint32_t faint = 38;
  return {selected ? mixed(background, text, quiet) : background, text, mixed(text, background, faint)};
}

bool is_dark(std::uint32_t colour) {
  const std::uint32_t light = (colour & 0xffU) * 54 + (colour >> 8U & 0xffU) * 183 + (colour >> 16U & 0xffU) * 19;
  return light < 256U * 118;
}

RowText split_row(std::wstring_view text) {
  text = without_last_blanks(text);
  const std::size_t open = text.rfind(L'(');
  if (text.empty() || text.back() != L')' || open == std::wstring_view::npos || open == 0)
    return {text, {}};
  return {without_last_blanks(text.substr(0, open)), text.substr(open)};
}

} // namespace lumotune::platform
