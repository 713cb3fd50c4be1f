// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of a text file, one after the other, without copying. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lumotune::base {

// CR LF, LF or CR ends a line; what follows the last end is a line when it is not empty. The bytes outlive the walk.
class LineWalk {
public:
  explicit LineWalk(std::string_view bytes, std::size_t max_lines = SIZE_MAX)
      : bytes_(bytes),
        lines_left_(max_lines),
        at_(bytes.data()),
        end_(at_ + bytes.size()),
        feed_(find('\n', end_)),
        line_(bytes.substr(0, 0)) {}

  // False after the last line, or after the most that were asked for: then `after` is short of the end. In the header,
  // and with the system's search only, because station files are long. The next line feed is looked for once and
  // remembered, so that a line of carriage returns costs no more than another.
  [[nodiscard]] bool next() {
    if (at_ == end_ || lines_left_ == 0)
      return false;
    --lines_left_;
    if (feed_ < at_)
      feed_ = find('\n', end_);
    const char* const line_end = find('\r', feed_);
    line_ = {at_, static_cast<std::size_t>(line_end - at_)};
    // Nearly always the line feed decides where the next line starts, so that its search need not wait for the other.
    if (line_end + 1 < feed_) [[unlikely]]
      at_ = line_end + 1;
    else
      at_ = feed_ == end_ ? end_ : feed_ + 1;
    return true;
  }
  [[nodiscard]] std::string_view line() const { return line_; }
  // Where the line, and where the next one, starts in the bytes.
  [[nodiscard]] std::size_t start() const { return static_cast<std::size_t>(line_.data() - bytes_.data()); }
  [[nodiscard]] std::size_t after() const { return static_cast<std::size_t>(at_ - bytes_.data()); }

private:
  // The first such byte of the rest, or `end`.
  [[nodiscard]] const char* find(char byte, const char* end) const {
    if (at_ == end)
      return end;
    const void* const found = std::memchr(at_, byte, static_cast<std::size_t>(end - at_));
    return found == nullptr ? end : static_cast<const char*>(found);
  }

  std::string_view bytes_;
  std::size_t lines_left_;
  const char* at_;   // the next line
  const char* end_;  // of the bytes
  const char* feed_; // the first line feed at or after the line, or the end of the bytes
  std::string_view line_;
};

} // namespace lumotune::base
