// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_lines.h"

#include "base/line_walk.h"
#include "base/record_bytes.h"
#include "stations/station_limits.h"

#include <utility>

namespace lumotune::stations {

StationLines::StationLines(std::string bytes, const base::CodePageFold& fold) : bytes_(std::move(bytes)), fold_(fold) {
  base::LineWalk walk(bytes_, max_station_lines);
  while (walk.next())
    starts_.push_back(static_cast<std::uint32_t>(walk.start()));
  too_many_ = walk.after() < bytes_.size();
  if (!too_many_)
    return;
  std::string().swap(bytes_);
  std::vector<std::uint32_t>().swap(starts_);
}

// A line ends with CR LF, LF or CR.
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

// Added from the end, because the index keeps the first of several equal identifiers.
void StationLines::index() const {
  if (keys_)
    return;
  const auto id_of = [this](std::size_t row) { return line(row - 1).substr(0, base::station_id_length); };
  auto keys = std::make_unique<StationKeys>(fold_, id_of);
  keys->reserve(count());
  for (std::size_t row = count(); row > 0; --row) {
    if (const std::string_view key = id_of(row); !key.empty())
      (void)keys->add(row, key); // false: a later line has this identifier
  }
  keys_ = std::move(keys);
}

std::optional<std::string_view> StationLines::last_of(std::string_view id) const {
  index();
  const std::size_t row = keys_->find(id);
  return row == 0 ? std::nullopt : std::optional(line(row - 1));
}

} // namespace lumotune::stations
