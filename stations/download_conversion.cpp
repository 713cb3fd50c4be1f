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

bool is_made_from(const Place& place, const ConvertedList& list) {
  return list.stations.has_value() && list.categories.has_value() &&
         place.files.stamp(place.stations) == list.stations && place.files.stamp(place.categories) == list.categories;
}

bool has_bytes(const Place& place, const std::wstring& file, std::string_view wanted) {
  std::string bytes;
  return place.files.size(file) == wanted.size() && place.files.read_at_most(file, bytes, wanted.size()) &&
         bytes == wanted;
}

// The lines in memory are those of the file while its stamp is theirs.
bool has_lines(const Place& place, const StampedContent<StationLines>& kept, std::string_view wanted) {
  const auto stamp = place.files.stamp(place.stations);
  if (kept.content && stamp.has_value() && stamp == kept.stamp)
    return kept.content->bytes() == wanted;
  return has_bytes(place, place.stations, wanted);
}

// Only what differs is written.
bool write_changes(const Place& place, const Converted& converted, bool same_stations, bool same_categories) {
  if (same_stations && same_categories)
    return true;
  if (!same_stations && !same_categories)
    return place.files.replace_both(place.stations, converted.stations, place.categories, converted.categories);
  place.files.settle(place.stations, place.categories); // as replacing both does first
  return same_stations ? place.files.replace(place.categories, converted.categories)
                       : place.files.replace(place.stations, converted.stations);
}

std::shared_ptr<const StationLines> indexed_lines(const Place& place, std::string bytes) {
  auto lines = std::make_shared<const StationLines>(std::move(bytes), base::CodePageFold(place.codec));
  lines->index();
  return lines;
}

} // namespace

// Belongs to the worker while that works, and to the user interface otherwise.
struct DownloadConversion::List {
  List(Place its_place, std::shared_ptr<const ConvertedList> made_before)
      : place(std::move(its_place)), before(std::move(made_before)) {}

  void read(std::uint64_t announced_size);
  void write();
  [[nodiscard]] const std::vector<Order>& orders() const { return unchanged ? before->orders : converted.orders; }

  Place place;
  std::shared_ptr<const ConvertedList> before; // what the files were made from, null if unknown
  StationContents kept;                        // in memory when the files are written
  Conversion result = Conversion::failed;
  bool unchanged = false; // the files were made from this very list
  Converted converted;
  StationContents fresh;
  std::shared_ptr<ConvertedList> made = std::make_shared<ConvertedList>();
};

// A list still being written may have grown since its length was queried.
void DownloadConversion::List::read(std::uint64_t announced_size) {
  std::string list;
  result = Conversion::unreadable;
  if (!place.files.read_at_most(place.list, list, announced_size) || list.size() != announced_size)
    return;
  made->size = list.size();
  made->mark = list_mark(list);
  unchanged = before && before->size == made->size && before->mark == made->mark && is_made_from(place, *before);
  if (!unchanged) {
    auto lines = convert(list);
    result = lines ? Conversion::done : Conversion::too_long;
    if (lines)
      converted = std::move(*lines);
    return;
  }
  result = Conversion::done;
}

// The stamps are taken before the contents are parsed: a file that changes meanwhile is read again.
void DownloadConversion::List::write() {
  const bool same_stations = has_lines(place, kept.stations, converted.stations);
  const bool same_categories = has_bytes(place, place.categories, converted.categories);
  if (!write_changes(place, converted, same_stations, same_categories)) {
    result = Conversion::not_written;
    return;
  }
  made->stations = place.files.stamp(place.stations);
  made->categories = place.files.stamp(place.categories);
  fresh.stations.stamp = made->stations;
  fresh.categories.stamp = made->categories;
  if (same_stations && kept.stations.content && kept.stations.stamp == made->stations)
    fresh.stations.content = kept.stations.content; // in use on the other thread: it must not be indexed here
  else
    fresh.stations.content = indexed_lines(place, std::move(converted.stations));
  fresh.categories.content =
      std::make_shared<const std::vector<CategoryNode>>(read_categories(converted.categories, place.codec));
  made->orders = std::move(converted.orders);
  result = Conversion::done;
}

void DownloadConversion::start(std::uint64_t announced_size, std::function<void(Conversion)> done) {
  give_up();
  done_ = std::move(done);
  const auto list = std::make_shared<List>(place_in(uses_.folder), uses_.station_files.made_from());
  task_ = uses_.worker.start([list, announced_size] { list->read(announced_size); },
                             [this, list](bool finished) {
                               if (!finished)
                                 list->result = Conversion::failed;
                               if (list->result != Conversion::done)
                                 return end(list->result);
                               const unsigned run = run_;
                               show(*list);
                               if (run != run_ || uses_.loop.quitting())
                                 return;
                               if (list->unchanged)
                                 return end(Conversion::done);
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
  for (const Order& order : list.orders()) {
    const std::wstring text = list.place.codec.decode(order.text);
    if (order.kind == Order::Kind::advertisement)
      uses_.shows.ZobrazReklamu(text);
    else
      uses_.shows.ZobrazInfoPanel(text);
    if (run != run_)
      return;
  }
  if (!list.orders().empty())
    uses_.shows.orders_end();
}

void DownloadConversion::write(const std::shared_ptr<List>& list) {
  list->kept = uses_.station_files.kept();
  task_ = uses_.worker.start([list] { list->write(); },
                             [this, list](bool finished) {
                               if (!finished)
                                 list->result = Conversion::failed;
                               if (list->result == Conversion::done)
                                 uses_.station_files.take(std::move(list->fresh), list->made);
                               end(list->result);
                             });
}

void DownloadConversion::end(Conversion result) {
  task_.reset();
  if (const auto done = std::exchange(done_, {}))
    done(result);
}

} // namespace lumotune::stations
