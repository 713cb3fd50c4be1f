// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_files.h"

#include "stations/file_names.h"
#include "stations/station_limits.h"

#include <utility>

namespace lumotune::stations {

std::wstring StationFiles::path(const wchar_t* name) const {
  return folder_.path(name);
}

// The stamp is taken before reading: a file that changes meanwhile is read again at the next call. The old content is
// released first, so that only one is in memory at a time.
template <typename Content, typename Make>
std::shared_ptr<const Content> StationFiles::current(StampedContent<Content>& kept, const wchar_t* name,
                                                     const Make& make) {
  const auto stamp = folder_.files().stamp(path(name));
  if (kept.content && stamp.has_value() && stamp == kept.stamp)
    return kept.content;
  kept = {};
  std::string bytes;
  const bool read = stamp.has_value() && folder_.files().read_at_most(path(name), bytes, max_station_bytes);
  kept.content = make(std::move(bytes));
  if (read)
    kept.stamp = stamp;
  return kept.content;
}

std::shared_ptr<const StationLines> StationFiles::stations() {
  return current(contents_.stations, stations_file,
                 [this](std::string bytes) { return std::make_shared<const StationLines>(std::move(bytes), fold_); });
}

std::shared_ptr<const std::vector<CategoryNode>> StationFiles::categories() {
  return current(contents_.categories, categories_file, [this](const std::string& bytes) {
    return std::make_shared<const std::vector<CategoryNode>>(read_categories(bytes, folder_.codec()));
  });
}

bool StationFiles::stations_too_long() {
  return stations()->too_many() || folder_.files().size(path(stations_file)).value_or(0) > max_station_bytes;
}

void StationFiles::take(StationContents fresh, std::shared_ptr<const ConvertedList> made_from) {
  contents_ = std::move(fresh);
  made_from_ = std::move(made_from);
}

} // namespace lumotune::stations
