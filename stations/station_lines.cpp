// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_lines.h"

#include "base/line_walk.h"
#include "stations/station_limits.h"

namespace lumotune::stations {

void StationLines::read(const platform::Files& files, const std::wstring& path) {
  starts_.clear();
  (void)files.read_at_most(path, bytes_,
                           stations::max_station_bytes); // a file that cannot be read leaves no bytes and so no lines
  base::LineWalk walk(bytes_, stations::max_station_lines);
  while (walk.next())
    starts_.push_back(static_cast<std::uint32_t>(walk.start()));
  bytes_.resize(walk.after()); // the last line ends there, however much follows
}

// What ends a line is a line feed with the carriage return before it, or one of the two alone.
std::string_view StationLines::line(std::size_t index) const {
  if (index >= starts_.size())
    return {};
  const std::size_t start = starts_[index];
  const std::size_t after = index + 1 < starts_.size() ? starts_[index + 1] : bytes_.size();
  std::string_view text = std::string_view(bytes_).substr(start, after - start);
  const bool feed = text.ends_with('\n');
  if (feed)
    text.remove_suffix(1);
  if (text.ends_with('\r'))
    text.remove_suffix(1);
  return text;
}

} // namespace lumotune::stations
