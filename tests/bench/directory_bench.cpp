// SPDX-License-Identifier: LGPL-2.1-or-later
// How fast 50,000 stations are converted, loaded and filtered, and what memory they take, measured against copying and
// reading their files. Prints a row a measurement, "name | ours | reference | ratio | limit", and ends with 1 when a
// limit is passed.
#include "directory/station_rows.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "platform/memory/worker.h"
#include "stations/download_conversion.h"
#include "stations/file_names.h"
#include "stations/station_files.h"
#include "stations/station_lookup.h"
#include "stations/station_table.h"
#include "tests/bench/measure.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

namespace {

std::size_t live_bytes = 0;

} // namespace

// What the program holds is counted, as the allocator rounds it.
void* operator new(std::size_t size) {
  void* const room = std::malloc(size == 0 ? 1 : size);
  if (room == nullptr)
    throw std::bad_alloc();
  live_bytes += malloc_usable_size(room);
  return room;
}
void operator delete(void* room) noexcept {
  live_bytes -= malloc_usable_size(room);
  std::free(room);
}
void operator delete(void* room, std::size_t /*size*/) noexcept {
  operator delete(room);
}

namespace {

using namespace lumotune;
using bench::DiskFiles;
using bench::fail;
using bench::row;
using bench::Times;

constexpr int station_count = 50000;
constexpr int rounds = 100;
constexpr double frame_ms = 1000.0 / 60.0;

struct Silent final : stations::ConversionPort {
  void ZobrazReklamu(const std::wstring& /*text*/) override {}
  void ZobrazInfoPanel(const std::wstring& /*text*/) override {}
  void orders_end() override {}
};

// About 200 bytes a station, ten top-level categories of ten subcategories each.
std::string downloaded_list() {
  std::string bytes;
  char text[64];
  for (int top = 0; top < 10; ++top) {
    for (int sub = -1; sub < 10; ++sub) {
      std::snprintf(text, sizeof text, sub < 0 ? "new//1000%02d" : "add//1000%02ds%d", top, sub);
      bytes += std::string("orb:k:") + text + "/@/Kategorie\r\n";
    }
  }
  for (int i = 0; i < station_count; ++i) {
    std::snprintf(text, sizeof text, "S%05d", i);
    const std::string id = text;
    std::snprintf(text, sizeof text, "1000%02ds%d", i % 10, i / 10 % 10);
    bytes += id + "/@/R\xe1" + "dio " + id + "/@/" + (i % 50 == 0 ? "tip nov\xe9" : "redakce") + "/@/0/@/\xc8" +
             "esko/@/" + text;
    for (const char* rate : {"64", "128", "192"})
      bytes += "/@/http://proud.example:8000/" + id + "-" + rate;
    bytes += "/@//@//@/64/@/128/@/192/@//@//@/http://www.example/" + id + "\r\n";
  }
  return bytes + "<end>\r\n";
}

// The frame is filled with the first rows as a window does it.
double slowest_category_ms(directory::StationRows& rows, const stations::StationTable& table) {
  double slowest = 0;
  for (const wchar_t* category : {L"100000", L"100003", L"100003s4", L"xs4"}) {
    const auto show = [&] {
      std::wstring Kategorie = category;
      rows.ZobrazKategoriiRadii(table.lines(), Kategorie);
      for (std::size_t shown = 1; shown <= 40; ++shown)
        (void)(rows.text(shown, 0).size() + rows.text(shown, 1).size() + rows.bold(shown));
    };
    slowest = std::max(slowest, bench::best_ms(rounds, show, [] {}).ours);
  }
  return slowest;
}

// A typed letter that no station begins with: the list asks every row.
double letter_ms(const directory::StationRows& rows) {
  const auto search = [&] {
    bool found = false;
    wchar_t first[2];
    for (std::size_t row = 1; row <= rows.count(); ++row)
      found |= rows.beginning(row, first, 2) != 0 && first[0] == L'\u010c';
    if (found)
      std::exit(fail("no station begins with that letter"));
  };
  return bench::best_ms(rounds, search, [] {}).ours;
}

// Each letter typed into the filter, and the last one deleted; the slowest of them.
double filter_ms(directory::StationRows& rows) {
  double slowest = 0;
  for (const wchar_t* typed : {L"r", L"ra", L"radio s4999", L"cesko radio 99", L"neni", L""})
    slowest = std::max(slowest, bench::best_ms(
                                    rounds, [&] { rows.set_filter(typed); }, [] {})
                                    .ours);
  return slowest;
}

int run(DiskFiles& files) {
  const platform::memory::Codec codec;
  const platform::memory::Machine machine;
  const base::ProgramFolder folder(files, codec, machine);
  Silent silent;
  const std::string list = downloaded_list();
  const std::uint64_t size = list.size();
  if (!files.replace(stations::download_file, list))
    return fail("the list was not written");
  platform::memory::EventLoop loop;
  platform::memory::Worker worker(loop);
  const auto convert = [&] {
    stations::StationFiles fresh(folder);
    stations::DownloadConversion conversion({folder, fresh, silent, worker, loop});
    stations::Conversion result = stations::Conversion::failed;
    conversion.start(size, [&](stations::Conversion answer) { result = answer; });
    loop.advance(0);
    return result;
  };
  if (convert() != stations::Conversion::done)
    return fail("the list was not converted");
  const Times conversion = bench::best_ms(
      rounds, [&] { (void)convert(); }, [&] { (void)files.copy(stations::download_file, L"copy"); });

  std::string buffer;
  std::size_t lines = 0;
  const std::size_t held_before = live_bytes;
  const Times loading = bench::best_ms(
      rounds, [&] { (void)stations::StationFiles(folder).stations(); },
      [&] { lines = bench::read_lines(files, stations::stations_file, buffer); });
  const double file_size = static_cast<double>(buffer.size());
  std::string().swap(buffer);
  stations::StationFiles station_files(folder);
  stations::StationTable table({station_files, codec});
  directory::StationRows rows(codec);
  table.load();
  rows.show_all(table.lines());
  stations::StationLookup look_up({station_files, codec});
  if (look_up.RadioInfo(L"S49999", L"k2") != L"128" || table.lines() != station_files.stations())
    return fail("the look-up and the directory do not share the stations");
  const double held = static_cast<double>(live_bytes - held_before);
  if (lines != station_count + 1 || rows.count() != station_count || rows.find(L"S49999") != station_count)
    return fail("the stations are wrong");

  std::printf("name | ours | reference | ratio | limit\n");
  bool good = row("conversion of 50,000 stations and their lines, against copying the list", conversion, 3.5);
  good &= row("loading 50,000 stations, against reading their lines", loading, 3.0);
  good &= row("slowest category of 50,000 stations, against a frame", slowest_category_ms(rows, table), frame_ms, "ms",
              1.0);
  good &= row("a letter searched in 50,000 stations, against a frame", letter_ms(rows), frame_ms, "ms", 0.5);
  good &= row("slowest letter of a filter over 50,000 stations, against a frame", filter_ms(rows), frame_ms, "ms", 1.0);
  good &=
      row("memory of 50,000 stations, listed and looked up, against the file", held / 1e6, file_size / 1e6, "MB", 1.5);
  return good ? 0 : 1;
}

} // namespace

int main() {
  DiskFiles files;
  const int result = run(files);
  for (const wchar_t* name : {stations::download_file, stations::stations_file, stations::categories_file, L"copy"})
    (void)files.remove(name); // a left-over is written anew by the next run
  return result;
}
