// SPDX-License-Identifier: LGPL-2.1-or-later
// Iterates over the lines of a text file without copying. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lumotune::base {

// CR LF, LF or CR ends a line; a non-empty rest after the last line end is a line too. The bytes must outlive the walk.
class LineWalk {
public:
  explicit LineWalk(std::string_view bytes, std::size_t max_lines = SIZE_MAX)
      : bytes_(bytes),
        lines_left_(max_lines),
        at_(bytes.data()),
        end_(at_ + bytes.size()),
        feed_(find('\n', end_)),
        line_(bytes.substr(0, 0)) {}

  // False after the last line, or after `max_lines`: then `after` is short of the end. Inline and memchr only, because
  // station files are long. The position of the next line feed is remembered, so that a file of carriage returns still
  // takes linear time.
  [[nodiscard]] bool next() {
    if (at_ == end_ || lines_left_ == 0)
      return false;
    --lines_left_;
    if (feed_ < at_)
      feed_ = find('\n', end_);
    const char* const line_end = find('\r', feed_);
    line_ = {at_, static_cast<std::size_t>(line_end - at_)};
    // The line feed nearly always decides where the next line starts: with this branch predicted, its position does not
    // depend on the search for a carriage return.
    if (line_end + 1 < feed_) [[unlikely]]
      at_ = line_end + 1;
    else
      at_ = feed_ == end_ ? end_ : feed_ + 1;
    return true;
  }
  [[nodiscard]] std::string_view line() const { return line_; }
  // The offsets in the bytes where this line and the next one start.
  [[nodiscard]] std::size_t start() const { return static_cast<std::size_t>(line_.data() - bytes_.data()); }
  [[nodiscard]] std::size_t after() const { return static_cast<std::size_t>(at_ - bytes_.data()); }

private:
  // The next occurrence of the byte, or `end`.
  [[nodiscard]] const char* find(char byte, const char* end) const {
    if (at_ == end)
      return end;
    const void* const found = std::memchr(at_, byte, static_cast<std::size_t>(end - at_));
    return found == nullptr ? end : static_cast<const char*>(found);
  }

  std::string_view bytes_;
  std::size_t lines_left_;
  const char* at_;   // start of the next line
  const char* end_;  // of the bytes
  const char* feed_; // the first line feed at or after the line, or the end of the bytes
  std::string_view line_;
};

} // namespace lumotune::base
