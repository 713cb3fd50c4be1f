// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the file of titles: a switch, then one title a line, the newest last. Pure.
#pragma once

#include "base/options_lines.h"
#include "platform/ansi_codec.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::player {

// The first line of a new file; whoever wants none recorded writes "ne" in place of "ano".
inline constexpr const wchar_t* titles_switch = L"zapisovat:ano";

// What was heard; every text as it came.
struct HeardTitle {
  std::wstring when;
  std::wstring station;
  std::wstring title;
};

// The file's lines in memory.
class TitleLines {
public:
  static constexpr std::size_t max_titles = 200;
  static constexpr std::size_t max_when = 40; // characters, as the two below
  static constexpr std::size_t max_station = 100;
  static constexpr std::size_t max_title = 500;

  TitleLines(std::string_view bytes, const platform::AnsiCodec& codec); // of the file; empty for a new one

  // Whether a line of the listener's says that nothing is to be recorded: "zapisovat:ne", case-insensitively, blanks
  // allowed, wherever it stands.
  [[nodiscard]] bool off() const { return off_; }
  // Appends a line "when | station | title", and drops the oldest beyond `max_titles`. Network text: control characters
  // and separators of lines become blanks, each part is cut. The same title of the same station again is left out.
  void add(const HeardTitle& heard);
  // The last titles, the newest first, each without its time and cut to `length` characters.
  [[nodiscard]] std::vector<std::wstring> last(std::size_t count, std::size_t length) const;
  [[nodiscard]] std::string bytes() const;

private:
  const platform::AnsiCodec& codec_;
  bool off_ = false;
  std::wstring switch_line_;
  std::vector<std::wstring> titles_;
};

} // namespace lumotune::player
