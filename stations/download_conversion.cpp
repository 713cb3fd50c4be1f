// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/download_conversion.h"

#include "stations/file_names.h"

#include <string>
#include <utility>

namespace lumotune::stations {
namespace {

// What the worker uses; the folder and the station files may go before it.
struct Place {
  platform::Files& files;
  const platform::AnsiCodec& codec;
  std::wstring list;
  std::wstring stations;
  std::wstring categories;
};

// Deliberately a forward slash: the downloader is given this exact path, and the file's growth is watched under it.
Place place_in(const base::ProgramFolder& folder) {
  return {folder.files(), folder.codec(), folder.path() + L"/" + download_file, folder.path(stations_file),
          folder.path(categories_file)};
}

// A list still being written may have grown since its length was queried.
Conversion read_list(const Place& place, std::uint64_t announced_size, Converted& converted) {
  std::string list;
  if (!place.files.read_at_most(place.list, list, announced_size) || list.size() != announced_size)
    return Conversion::unreadable;
  auto made = convert(list);
  if (!made)
    return Conversion::too_long;
  converted = std::move(*made);
  return Conversion::done;
}

// The stamps are taken before the contents are parsed: a file that changes meanwhile is read again.
Conversion write_files(const Place& place, Converted converted, StationContents& fresh) {
  if (!place.files.replace_both(place.stations, converted.stations, place.categories, converted.categories))
    return Conversion::not_written;
  fresh.stations.stamp = place.files.stamp(place.stations);
  fresh.categories.stamp = place.files.stamp(place.categories);
  fresh.stations.content =
      std::make_shared<const StationLines>(std::move(converted.stations), base::CodePageFold(place.codec));
  fresh.stations.content->index();
  fresh.categories.content =
      std::make_shared<const std::vector<CategoryNode>>(read_categories(converted.categories, place.codec));
  return Conversion::done;
}

} // namespace

// Belongs to the worker while that works, and to the user interface otherwise.
struct DownloadConversion::List {
  explicit List(Place its_place) : place(std::move(its_place)) {}
  Place place;
  Conversion result = Conversion::failed;
  Converted converted;
  StationContents fresh;
};

void DownloadConversion::start(std::uint64_t announced_size, std::function<void(Conversion)> done) {
  give_up();
  done_ = std::move(done);
  const auto list = std::make_shared<List>(place_in(uses_.folder));
  task_ = uses_.worker.start(
      [list, announced_size] { list->result = read_list(list->place, announced_size, list->converted); },
      [this, list](bool /*finished*/) {
        if (list->result != Conversion::done)
          return end(list->result);
        const unsigned run = run_;
        show(*list);
        if (run == run_ && !uses_.loop.quitting())
          write(list);
      });
}

void DownloadConversion::give_up() {
  ++run_;
  task_.reset();
  done_ = {};
}

// An information line runs events: the conversion may be given up meanwhile.
void DownloadConversion::show(List& list) {
  const unsigned run = run_;
  for (const Order& order : list.converted.orders) {
    const std::wstring text = list.place.codec.decode(order.text);
    if (order.kind == Order::Kind::advertisement)
      uses_.shows.ZobrazReklamu(text);
    else
      uses_.shows.ZobrazInfoPanel(text);
    if (run != run_)
      return;
  }
  if (!list.converted.orders.empty())
    uses_.shows.orders_end();
}

void DownloadConversion::write(const std::shared_ptr<List>& list) {
  list->result = Conversion::failed;
  task_ =
      uses_.worker.start([list] { list->result = write_files(list->place, std::move(list->converted), list->fresh); },
                         [this, list](bool /*finished*/) {
                           if (list->result == Conversion::done)
                             uses_.station_files.take(std::move(list->fresh));
                           end(list->result);
                         });
}

void DownloadConversion::end(Conversion result) {
  task_.reset();
  if (const auto done = std::exchange(done_, {}))
    done(result);
}

} // namespace lumotune::stations
