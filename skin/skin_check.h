// SPDX-License-Identifier: LGPL-2.1-or-later
// Says what is wrong with a skin, for those who draw one. Reads files and changes none.
#pragma once

#include "base/program_folder.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

struct Finding {
  std::wstring file;    // without its folder
  std::size_t line = 0; // counted from 1; 0 where it is no matter of a line
  std::wstring reason;  // Czech
};

struct PictureSize {
  int width = 0; // pixels
  int height = 0;
};
// The size of a picture from its whole file; nothing when it cannot be shown.
using PictureReader = std::function<std::optional<PictureSize>(std::string_view bytes)>;

// What keeps the skin from loading, what it asks for in vain, and what will not look as it was meant to; lines in their
// order, then pictures. Empty when all is well. `files` and `codec` as the program has them; `folder`: that of the
// skins.
[[nodiscard]] std::vector<Finding> check_skin(const platform::Files& files, const platform::AnsiCodec& codec,
                                              const std::wstring& folder, const std::wstring& name,
                                              const PictureReader& read_picture);

// "Lumo.skin:3: reason", or without a line "play.gif: reason".
[[nodiscard]] std::wstring said(const Finding& finding);

} // namespace lumotune::skin
