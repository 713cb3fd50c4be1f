// SPDX-License-Identifier: LGPL-2.1-or-later
// What files of zeros and of random bytes cost in memory, counted at every allocation of this program.
#include "stations/favourite_file.h"
#include "tests/support/stations_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <random>
#include <string>

#include <malloc.h>

namespace {

std::size_t allocated = 0;
std::size_t highest = 0;

void* counted(void* memory) {
  if (memory == nullptr)
    throw std::bad_alloc();
  allocated += malloc_usable_size(memory);
  highest = std::max(highest, allocated);
  return memory;
}

void release(void* memory) noexcept {
  allocated -= memory == nullptr ? 0 : malloc_usable_size(memory);
  std::free(memory);
}

} // namespace

void* operator new(std::size_t bytes) {
  return counted(std::malloc(std::max<std::size_t>(bytes, 1)));
}
void operator delete(void* memory) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  release(memory);
}

namespace lumotune::test {
namespace {

constexpr std::size_t file_bytes = 4UL * 1024 * 1024;

const std::string& random_bytes() {
  static const std::string random = [] {
    std::mt19937_64 source(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same in every run
    std::string bytes(file_bytes, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(source());
    return bytes;
  }();
  return random;
}

struct StationMemory : testing::TestWithParam<bool> {
  StationsWorld w;
  void fill(const wchar_t* name) {
    w.files.written_by_another(w.path(name), GetParam() ? random_bytes() : std::string(file_bytes, '\0'));
  }
  // The highest number of bytes in use during the action, as a share of the file's.
  template <typename Action>
  static double share(const Action& action) {
    const std::size_t before = allocated;
    highest = allocated;
    action();
    return static_cast<double>(highest - before) / static_cast<double>(file_bytes);
  }
};

TEST_P(StationMemory, AStationFileCostsItsSize) {
  fill(L"radios.tt");
  const double cost = share([this] {
    (void)w.station_files.stations();
    (void)w.stations.RadioInfo(L"RADIO1", L"name"); // by the index
  });
  RecordProperty("share_percent", static_cast<int>(cost * 100));
  EXPECT_GT(cost, 0.99) << "it is read";
  EXPECT_LE(cost, 1.3);
}

TEST_P(StationMemory, ACategoryFileCostsItsSize) {
  fill(L"kategories.tt");
  const double cost = share([this] { (void)w.station_files.categories(); });
  RecordProperty("share_percent", static_cast<int>(cost * 100));
  EXPECT_GT(cost, 0.99) << "it is read";
  EXPECT_LE(cost, 1.3);
}

TEST_P(StationMemory, OtherFilesAreTooLongToBeRead) {
  for (const wchar_t* name : {L"list.tt", L"Orb_Data\\options.ini", L"Orb_Data\\orb_server.tt"})
    fill(name);
  stations::FavouriteFile favourites(w.folder);
  const double cost = share([&] {
    EXPECT_EQ(favourites.read(), "");
    EXPECT_EQ(favourites.add(L"lt:RADIO1/1"), stations::FavouriteAdded::failed);
    EXPECT_EQ(favourites.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::failed);
    w.options.LoadOptions();
    w.options.LoadOptionsServer();
  });
  RecordProperty("share_percent", static_cast<int>(cost * 100));
  EXPECT_LT(cost, 0.01);
  EXPECT_EQ(w.files.size(w.path(L"list.tt")), file_bytes) << "what cannot be read is not replaced";
}

INSTANTIATE_TEST_SUITE_P(Bytes, StationMemory, testing::Bool(),
                         [](const auto& of) { return of.param ? "Random" : "Zero"; });

} // namespace
} // namespace lumotune::test
