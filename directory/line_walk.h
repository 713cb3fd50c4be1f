// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of a text file, one after the other, without copying. Pure.
#pragma once

#include <cstddef>
#include <string_view>

namespace lumotune::directory {

// CR LF, LF or CR ends a line; what follows the last end is a line when it is not empty. The bytes outlive the walk.
class LineWalk {
public:
  explicit LineWalk(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] bool next(); // false after the last line
  [[nodiscard]] std::string_view line() const { return bytes_.substr(start_, length_); }
  [[nodiscard]] std::size_t start() const { return start_; } // of the line in the bytes
  [[nodiscard]] std::size_t after() const { return after_; } // where the next line starts

private:
  static constexpr std::size_t unknown = std::string_view::npos;

  std::string_view bytes_;
  std::size_t start_ = 0;
  std::size_t length_ = 0;
  std::size_t after_ = 0;
  std::size_t feed_ = unknown; // the first line feed at or after the line, or the end of the bytes
};

} // namespace lumotune::directory
