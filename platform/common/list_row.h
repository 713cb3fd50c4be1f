// SPDX-License-Identifier: LGPL-2.1-or-later
// How a row of the main window's list looks. Pure; colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <string_view>

namespace lumotune::platform {

struct RowColours {
  std::uint32_t ground = 0;
  std::uint32_t text = 0;
  std::uint32_t dim = 0; // of what stands second
};

// A quiet ground for the selected row; the text keeps its colour, so that its contrast stays nearly as the skin has it.
[[nodiscard]] RowColours row_colours(std::uint32_t background, std::uint32_t text, bool selected);

// Whether white stands out from it more than black does.
[[nodiscard]] bool is_dark(std::uint32_t colour);

struct RowText {
  std::wstring_view first;
  std::wstring_view second; // what stands last in parentheses, with them; empty where nothing does
};
[[nodiscard]] RowText split_row(std::wstring_view text);

} // namespace lumotune::platform
