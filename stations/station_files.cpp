// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_files.h"

#include "stations/file_names.h"
#include "stations/station_limits.h"

#include <utility>

namespace lumotune::stations {

std::wstring StationFiles::path(const wchar_t* name) const {
  return folder_.path(name);
}

std::shared_ptr<const StationLines> StationFiles::lines_of(std::string bytes) const {
  return std::make_shared<const StationLines>(std::move(bytes), fold_);
}

std::shared_ptr<const std::vector<CategoryNode>> StationFiles::nodes_of(const std::string& bytes) const {
  return std::make_shared<const std::vector<CategoryNode>>(read_categories(bytes, folder_.codec()));
}

// The stamp is taken before reading: a file that changes meanwhile is read again at the next call. The old content is
// released first, so that only one is in memory at a time.
template <typename Content, typename Make>
std::shared_ptr<const Content> StationFiles::current(Kept<Content>& kept, const wchar_t* name, const Make& make) {
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
  return current(stations_, stations_file, [this](std::string bytes) { return lines_of(std::move(bytes)); });
}

std::shared_ptr<const std::vector<CategoryNode>> StationFiles::categories() {
  return current(categories_, categories_file, [this](const std::string& bytes) { return nodes_of(bytes); });
}

bool StationFiles::stations_too_long() {
  return stations()->too_many() || folder_.files().size(path(stations_file)).value_or(0) > max_station_bytes;
}

// Deliberately a forward slash: the downloader is given this exact path, and the file's growth is watched under it. A
// list still being written may have grown since its length was queried.
Conversion StationFiles::convert_download(std::uint64_t announced_size, ConversionPort& port) {
  std::string list;
  if (!folder_.files().read_at_most(folder_.path() + L"/" + download_file, list, announced_size) ||
      list.size() != announced_size)
    return Conversion::unreadable;
  auto converted = convert(list, folder_.codec(), port);
  if (!converted)
    return Conversion::too_long;
  std::string().swap(list); // frees the memory: the stations are held three times from here
  if (!folder_.files().replace_both(path(stations_file), converted->stations, path(categories_file),
                                    converted->categories))
    return Conversion::not_written;
  stations_ = {lines_of(std::move(converted->stations)), folder_.files().stamp(path(stations_file))};
  categories_ = {nodes_of(converted->categories), folder_.files().stamp(path(categories_file))};
  return Conversion::done;
}

} // namespace lumotune::stations
