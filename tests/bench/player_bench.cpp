// SPDX-License-Identifier: LGPL-2.1-or-later
// How fast a station is looked up and the favourites are shown, measured against reading the station file and finding
// its line ends. Prints a row a measurement, "name | ours | reference | ratio | limit", and ends with 1 when a limit is
// passed.
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/menus.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"
#include "player/favourites.h"
#include "stations/station_lookup.h"
#include "tests/bench/measure.h"
#include "tests/support/playback_parts.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>

namespace {

std::size_t allocations = 0;

} // namespace

// Every allocation of the program is counted.
void* operator new(std::size_t size) {
  ++allocations;
  if (void* room = std::malloc(size == 0 ? 1 : size))
    return room;
  throw std::bad_alloc();
}
void operator delete(void* room) noexcept {
  std::free(room);
}
void operator delete(void* room, std::size_t /*size*/) noexcept {
  std::free(room);
}

namespace {

using namespace lumotune;
using bench::DiskFiles;
using bench::fail;
using bench::row;
using bench::Times;

constexpr int station_count = 50000;
constexpr int favourite_count = 100;
constexpr int rounds = 40;
const std::wstring stations_file = L"radios.tt";
const std::wstring favourites_file = L"list.tt";

std::string identifier(int number) {
  char text[16];
  std::snprintf(text, sizeof text, "S%05d", number);
  return text;
}

// About 200 bytes a station, as a real database has.
std::string database() {
  std::string bytes;
  for (int i = 0; i < station_count; ++i) {
    const std::string id = identifier(i);
    bytes += id + "/@/R\xe1" + "dio " + id + "/@/redakce/@/0/@/\xc8" + "esko/@/100001";
    for (const char* rate : {"64", "128", "192"})
      bytes += "/@/http://proud.example:8000/" + id + "-" + rate;
    bytes += "/@//@//@/64/@/128/@/192/@//@//@/http://www.example/" + id + "\r\n";
  }
  return bytes;
}

// Some work measured against one pass over the station file.
Times against_reading(const DiskFiles& files, const std::function<void()>& work) {
  std::string buffer;
  return bench::best_ms(rounds, work, [&] { (void)bench::read_lines(files, stations_file, buffer); });
}

int bench_look_up(DiskFiles& files) {
  const platform::memory::Codec codec;
  const platform::memory::Machine machine;
  const base::ProgramFolder folder(files, codec, machine);
  stations::StationFiles station_files(folder);
  stations::StationLookup stations({station_files, codec});
  const std::string first_id = identifier(0);
  const std::wstring first(first_id.begin(), first_id.end());
  if (stations.RadioInfo(first, L"u2") != L"http://proud.example:8000/S00000-128")
    return fail("the look-up answers wrongly");

  const Times best = against_reading(files, [&] { (void)stations.RadioInfo(first, L"u2"); });
  const std::size_t before = allocations;
  (void)stations.RadioInfo(first, L"u2");
  const std::size_t used = allocations - before;

  const Times first_time = against_reading(files, [&] {
    stations::StationFiles unread(folder);
    (void)stations::StationLookup({unread, codec}).RadioInfo(first, L"u2");
  });
  constexpr std::size_t allocation_limit = 20;
  bool quick = row("station look-up in 50,000 lines in memory, against reading them", best, 0.1);
  quick &= row("first look-up, which reads 50,000 lines, against reading them", first_time, 4.0);
  std::printf("allocations of one look-up | %zu | %d lines | %.5f | %zu in all\n", used, station_count,
              static_cast<double>(used) / station_count, allocation_limit);
  return quick && used <= allocation_limit ? 0 : 1;
}

// The favourites lie all over the station file, the last of its lines among them.
int bench_favourites(DiskFiles& files) {
  std::string list;
  for (int i = 1; i <= favourite_count; ++i)
    list += "lt:" + identifier(i * (station_count / favourite_count) - 1) + "/2\r\n";
  if (!files.replace(favourites_file, list))
    return fail("the favourites were not written");
  const platform::memory::Codec codec;
  const platform::memory::Machine machine;
  platform::memory::EventLoop loop;
  platform::memory::Dialogs dialogs(loop);
  platform::memory::MediaPlayer player;
  platform::memory::Pointer pointer;
  platform::memory::Window window(files);
  platform::memory::Messages messages;
  platform::memory::Shell shell;
  test::PlaybackParts parts({files, codec, machine, loop, window, messages, shell, dialogs, player});
  auto& form = parts.form;
  player::Favourites favourites(
      {parts.folder, parts.settings, parts.session, form, parts.playback, parts.station_files, dialogs, loop, pointer});
  favourites.ZobrazOblibene();
  if (form.Control_List.count() != favourite_count ||
      form.Control_List.item(favourite_count - 1).substr(93) != L"2S49999http://proud.example:8000/S49999-128")
    return fail("the favourites are shown wrongly");

  const Times best = against_reading(files, [&] { favourites.ZobrazOblibene(); });
  constexpr double time_limit = 0.3;
  return row("ZobrazOblibene of 100 favourites in 50,000 lines, against reading them", best, time_limit) ? 0 : 1;
}

int run(DiskFiles& files) {
  std::string buffer;
  if (!files.replace(stations_file, database()) || bench::read_lines(files, stations_file, buffer) != station_count)
    return fail("the database was not read back");
  std::printf("name | ours | reference | ratio | limit\n");
  const int look_up = bench_look_up(files);
  const int favourites = bench_favourites(files);
  return std::max(look_up, favourites);
}

} // namespace

int main() {
  DiskFiles files;
  const int result = run(files);
  for (const std::wstring& name : {stations_file, favourites_file})
    (void)files.remove(name); // a left-over is written anew by the next run
  return result;
}
