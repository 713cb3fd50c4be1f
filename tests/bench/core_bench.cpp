// SPDX-License-Identifier: LGPL-2.1-or-later
// How fast a station is looked up and the favourites are shown, measured against reading the file and finding its line
// ends. Prints a row a measurement, "name | ours | reference | ratio | limit", and ends with 1 when a limit is passed.
#include "core/favourites.h"
#include "core/station_lookup.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/menus.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
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

constexpr int station_count = 50000;
constexpr int favourite_count = 100;
constexpr int rounds = 40;

// The station file on the real disk and a favourites file; nothing else is asked of the files here.
class OneDiskFile final : public platform::Files {
public:
  explicit OneDiskFile(std::string disk_path) : disk_path_(std::move(disk_path)) {}
  [[nodiscard]] bool read_into(const std::wstring& /*path*/, std::string& bytes) const override {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(disk_path_.c_str(), "rb"), std::fclose);
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0)
      return false;
    bytes.resize(static_cast<std::size_t>(std::ftell(file.get())));
    std::rewind(file.get());
    return std::fread(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  }
  [[nodiscard]] bool exists(const std::wstring& /*path*/) const override { return true; }
  [[nodiscard]] std::optional<std::uint64_t> size(const std::wstring& /*path*/) const override { return {}; }
  [[nodiscard]] std::optional<std::string> read(const std::wstring& /*path*/) const override { return favourites; }
  [[nodiscard]] bool replace(const std::wstring& /*path*/, std::string_view /*bytes*/) override { return false; }
  [[nodiscard]] bool replace_both(const std::wstring& /*first*/, std::string_view /*first_bytes*/,
                                  const std::wstring& /*second*/, std::string_view /*second_bytes*/) override {
    return false;
  }
  [[nodiscard]] bool being_written(const std::wstring& /*path*/) const override { return false; }
  [[nodiscard]] bool append(const std::wstring& /*path*/, std::string_view /*bytes*/) override { return false; }
  [[nodiscard]] bool remove(const std::wstring& /*path*/) override { return false; }
  [[nodiscard]] bool copy(const std::wstring& /*from*/, const std::wstring& /*to*/) override { return false; }
  [[nodiscard]] std::vector<std::wstring> list(const std::wstring& /*folder*/,
                                               const std::wstring& /*pattern*/) const override {
    return {};
  }

  std::string favourites;

private:
  std::string disk_path_;
};

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

double run_ms(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  return took.count();
}

std::size_t read_and_find_line_ends(const OneDiskFile& file, std::string& bytes) {
  if (!file.read_into(L"", bytes))
    return 0;
  std::size_t lines = 0;
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at < end) {
    const auto* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (feed == nullptr)
      break;
    ++lines;
    at = feed + 1;
  }
  return lines;
}

int fail(const char* what) {
  std::fprintf(stderr, "bench_core: %s\n", what);
  return 2;
}

struct Times {
  double ours = 1e9;
  double reference = 1e9;
  [[nodiscard]] double ratio() const { return ours / reference; }
};

// The best times of some work and of one pass over the station file, taken in turn: what slows the machine down for a
// while slows both.
Times best_ms(const OneDiskFile& file, const std::function<void()>& work) {
  Times best;
  std::string buffer;
  for (int i = 0; i < rounds; ++i) {
    best.reference = std::min(best.reference, run_ms([&] { (void)read_and_find_line_ends(file, buffer); }));
    best.ours = std::min(best.ours, run_ms(work));
  }
  return best;
}

int bench_look_up(const OneDiskFile& file, std::size_t file_bytes) {
  const platform::memory::MemoryCodec codec;
  const platform::memory::MemoryMachine machine;
  core::StationLookup stations({file, codec, machine});
  const std::string first_id = identifier(0);
  const std::wstring first(first_id.begin(), first_id.end());
  if (stations.RadioInfo(first, L"u2") != L"http://proud.example:8000/S00000-128")
    return fail("the look-up answers wrongly");

  const Times best = best_ms(file, [&] { (void)stations.RadioInfo(first, L"u2"); });
  const std::size_t before = allocations;
  (void)stations.RadioInfo(first, L"u2");
  const std::size_t used = allocations - before;

  constexpr double time_limit = 3.0;
  constexpr std::size_t allocation_limit = 20;
  std::printf("station look-up, %d lines, %.1f MB | %.2f ms | %.2f ms | %.2f | %.2f\n", station_count,
              static_cast<double>(file_bytes) / 1e6, best.ours, best.reference, best.ratio(), time_limit);
  std::printf("allocations of one look-up | %zu | %d lines | %.5f | %zu in all\n", used, station_count,
              static_cast<double>(used) / station_count, allocation_limit);
  return best.ratio() <= time_limit && used <= allocation_limit ? 0 : 1;
}

// The favourites lie all over the station file, the last of its lines among them.
int bench_favourites(OneDiskFile& file) {
  for (int i = 1; i <= favourite_count; ++i)
    file.favourites += "lt:" + identifier(i * (station_count / favourite_count) - 1) + "/2\r\n";
  const platform::memory::MemoryCodec codec;
  const platform::memory::MemoryMachine machine;
  platform::memory::MemoryEventLoop loop;
  platform::memory::MemoryDialogs dialogs;
  platform::memory::MemoryMediaPlayer player;
  platform::memory::MemoryPointer pointer;
  platform::memory::MemoryWindow window(file);
  core::LumotuneForm form(window);
  core::Settings settings;
  core::Session session;
  core::StationLookup stations({file, codec, machine});
  core::Playback playback({settings, session, form, player, stations});
  core::Favourites favourites(
      {file, codec, machine, settings, session, form, playback, stations, dialogs, loop, pointer});
  favourites.ZobrazOblibene();
  if (form.Control_List.count() != favourite_count ||
      form.Control_List.item(favourite_count - 1).substr(93) != L"2S49999http://proud.example:8000/S49999-128")
    return fail("the favourites are shown wrongly");

  const Times best = best_ms(file, [&] { favourites.ZobrazOblibene(); });
  constexpr double time_limit = 2.0;
  std::printf("ZobrazOblibene, %d favourites, %d lines | %.2f ms | %.2f ms | %.2f | %.2f\n", favourite_count,
              station_count, best.ours, best.reference, best.ratio(), time_limit);
  return best.ratio() <= time_limit ? 0 : 1;
}

int run(const std::string& path) {
  const std::string bytes = database();
  std::ofstream(path, std::ios::binary) << bytes;
  OneDiskFile file(path);
  std::string buffer;
  if (read_and_find_line_ends(file, buffer) != station_count)
    return fail("the database was not read back");
  std::printf("name | ours | reference | ratio | limit\n");
  const int look_up = bench_look_up(file, bytes.size());
  const int favourites = bench_favourites(file);
  return std::max(look_up, favourites);
}

} // namespace

int main() {
  const std::string path = "bench_core.radios.tt";
  const int result = run(path);
  (void)std::remove(path.c_str()); // a left-over is written anew by the next run
  return result;
}
