// SPDX-License-Identifier: LGPL-2.1-or-later
// What the user drags out of another program and drops on a window.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lumotune::platform {

class Control;

// Files or a text, never both: files when the source program offers them. The paths are unchecked and may name a share,
// a device or a folder.
struct Drop {
  // What is larger is not taken.
  static constexpr std::size_t max_paths = 64;
  static constexpr std::size_t max_path = 32767; // characters
  static constexpr std::size_t max_text = 4000;  // characters

  std::vector<std::wstring> paths;
  std::wstring text;
  const Control* over = nullptr; // the control under the pointer, nullptr over the background
};

} // namespace lumotune::platform
