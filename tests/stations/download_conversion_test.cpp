// SPDX-License-Identifier: LGPL-2.1-or-later
// The conversion beside the user-interface thread: what is done where, and what giving up leaves.
#include "stations/download_conversion.h"

#include "tests/support/stations_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace lumotune::test {
namespace {

using stations::Conversion;

struct DownloadConversionTest : testing::Test, stations::ConversionPort {
  StationsWorld w;
  stations::DownloadConversion conversion{{w.folder, w.station_files, *this, w.worker, w.loop}};
  std::optional<Conversion> result;
  std::vector<std::wstring> shown;
  std::function<void()> while_shown;
  std::string stations_before = w.get(L"radios.tt");

  void ZobrazReklamu(const std::wstring& text) override { show(L"r:" + text); }
  void ZobrazInfoPanel(const std::wstring& text) override { show(L"i:" + text); }
  void orders_end() override { shown.emplace_back(L"end"); }
  void show(const std::wstring& text) {
    shown.push_back(text);
    if (while_shown)
      while_shown();
  }
  void start(const std::string& list) {
    w.put(L"seznam.tt", list);
    conversion.start(list.size(), [this](Conversion answer) { result = answer; });
  }
  void expect_nothing_changed() {
    EXPECT_EQ(w.get(L"radios.tt"), stations_before);
    EXPECT_EQ(w.get(L"kategories.tt"), "(none)");
    EXPECT_FALSE(result.has_value());
  }
};

const std::string list = "orb:k:new//100001/@/A\r\norb:i:prvni\r\norb:i:druha\r\nNOVE01/@/Nov\xe9\r\n";

TEST_F(DownloadConversionTest, TheUserInterfaceThreadNeitherReadsNorWritesNorIndexes) {
  std::vector<std::thread::id> threads;
  start(list);
  w.files.before_read = [&](const std::wstring& /*path*/) { threads.push_back(std::this_thread::get_id()); };
  w.files.after_change = [&] { threads.push_back(std::this_thread::get_id()); };
  w.loop.advance(0);
  w.files.before_read = nullptr;
  EXPECT_EQ(result, Conversion::done);
  ASSERT_EQ(threads.size(), 3U) << "the list is read, two files are replaced";
  for (const std::thread::id thread : threads)
    EXPECT_NE(thread, std::this_thread::get_id());
  EXPECT_TRUE(w.station_files.stations()->indexed());
  EXPECT_EQ(w.files.reads(w.path(L"radios.tt")), 1U) << "by this test alone";
}

TEST_F(DownloadConversionTest, EventsRunBetweenItsSteps) {
  std::vector<std::string> seen;
  while_shown = [&] { seen.push_back(w.get(L"radios.tt")); };
  start(list);
  w.worker.stop_before_work();
  w.loop.advance(100);
  expect_nothing_changed();
  w.worker.go_on();
  w.loop.advance(0);
  EXPECT_EQ(seen, std::vector<std::string>(2, stations_before)) << "orders come before the files";
  EXPECT_EQ(shown, std::vector<std::wstring>({L"i:prvni", L"i:druha", L"end"}));
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
  EXPECT_EQ(result, Conversion::done);
}

TEST_F(DownloadConversionTest, GivenUpBeforeItIsReadItDoesNothing) {
  start(list);
  conversion.give_up();
  w.loop.advance(1000);
  expect_nothing_changed();
  EXPECT_EQ(w.worker.works(), 0U);
  EXPECT_TRUE(shown.empty());
}

TEST_F(DownloadConversionTest, GivenUpAfterTheReadingItShowsNothing) {
  w.worker.stop_before_done();
  start(list);
  w.loop.advance(0);
  EXPECT_EQ(w.worker.works(), 1U);
  conversion.give_up();
  w.worker.go_on();
  w.loop.advance(1000);
  expect_nothing_changed();
  EXPECT_TRUE(shown.empty());
}

TEST_F(DownloadConversionTest, GivenUpByAnOrderItShowsAndWritesNoMore) {
  while_shown = [this] { conversion.give_up(); };
  start(list);
  w.loop.advance(1000);
  expect_nothing_changed();
  EXPECT_EQ(shown, std::vector<std::wstring>({L"i:prvni"}));
}

TEST_F(DownloadConversionTest, TheEndOfTheProgramDuringAnOrderWritesNothing) {
  while_shown = [this] { w.loop.quit(); };
  start(list);
  w.loop.advance(1000);
  expect_nothing_changed();
}

// What is being written is written to its end: both files are new, and whoever asks next reads them.
TEST_F(DownloadConversionTest, GivenUpDuringTheWritingBothFilesAreNew) {
  start(list);
  w.files.after_change = [this] { w.worker.stop_before_done(); };
  w.loop.advance(0);
  conversion.give_up();
  w.files.after_change = nullptr;
  w.worker.go_on();
  w.loop.advance(1000);
  EXPECT_FALSE(result.has_value());
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
  EXPECT_EQ(w.get(L"kategories.tt"), "new//100001/@/A\r\n\r\n");
  EXPECT_EQ(w.station_files.stations()->line(0), "NOVE01/@/Nov\xe9");
}

TEST_F(DownloadConversionTest, ASecondOneTakesThePlaceOfTheFirst) {
  w.worker.stop_before_done();
  start("PRVNI1\r\n");
  w.loop.advance(0);
  start("DRUHA1\r\n");
  w.worker.go_on();
  w.loop.advance(0);
  EXPECT_EQ(result, Conversion::done);
  EXPECT_EQ(w.get(L"radios.tt"), "DRUHA1\r\n\r\n");
}

TEST_F(DownloadConversionTest, AFileThatAnotherProgramReplacesMeanwhileIsReadAnew) {
  w.worker.stop_before_done();
  start("PRVNI1\r\n");
  w.loop.advance(0);
  w.worker.go_on();
  bool replaced = false;
  w.files.after_change = [&] {
    if (std::exchange(replaced, true))
      w.worker.stop_before_done(); // both are written, which is not told yet
  };
  w.loop.advance(0);
  w.files.after_change = nullptr;
  w.files.written_by_another(w.path(L"radios.tt"), "JINA01\r\n");
  w.worker.go_on();
  w.loop.advance(0);
  EXPECT_EQ(result, Conversion::done);
  EXPECT_EQ(w.station_files.stations()->line(0), "JINA01");
}

TEST_F(DownloadConversionTest, WithoutAThreadOrMemoryItFails) {
  w.worker.no_threads = true;
  start(list);
  w.loop.advance(0);
  EXPECT_EQ(std::exchange(result, std::nullopt), Conversion::failed);
  w.worker.no_threads = false;
  start(list);
  w.files.before_read = [](const std::wstring& /*path*/) { throw std::bad_alloc(); };
  w.loop.advance(0);
  w.files.before_read = nullptr;
  EXPECT_EQ(std::exchange(result, std::nullopt), Conversion::failed);
  expect_nothing_changed();
  while_shown = [this] { w.worker.no_threads = true; }; // for the second step
  start(list);
  w.loop.advance(0);
  EXPECT_EQ(std::exchange(result, std::nullopt), Conversion::failed);
  expect_nothing_changed();
}

// What the server sends again costs a reading, and the listener sees the same as with a new list.
TEST_F(DownloadConversionTest, TheListThatTheFilesWereMadeFromIsNotConvertedAgain) {
  start(list);
  w.loop.advance(0);
  const auto lines = w.station_files.stations();
  const std::size_t works = w.worker.works();
  const auto stamp = w.files.stamp(w.path(L"radios.tt"));
  shown.clear();
  result.reset();
  int changes = 0;
  start(list);
  w.files.after_change = [&] { ++changes; };
  w.loop.advance(0);
  w.files.after_change = nullptr;
  EXPECT_EQ(result, Conversion::done);
  EXPECT_EQ(shown, std::vector<std::wstring>({L"i:prvni", L"i:druha", L"end"}));
  EXPECT_EQ(w.worker.works(), works + 1) << "read only";
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(w.files.stamp(w.path(L"radios.tt")), stamp);
  EXPECT_EQ(w.station_files.stations(), lines);
}

TEST_F(DownloadConversionTest, AListOfTheSameLengthThatDiffersInOneByteIsConverted) {
  start(list);
  w.loop.advance(0);
  std::string other = list;
  other[other.size() - 3] = 'X';
  start(other);
  w.loop.advance(0);
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/NovX\r\n\r\n");
}

TEST_F(DownloadConversionTest, TheSameListPutsRightWhatAnotherProgramChanged) {
  for (const wchar_t* file : {L"radios.tt", L"kategories.tt"}) {
    start(list);
    w.loop.advance(0);
    w.files.written_by_another(w.path(file), "JINA01\r\n");
    start(list);
    w.loop.advance(0);
    EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
    EXPECT_EQ(w.get(L"kategories.tt"), "new//100001/@/A\r\n\r\n");
    (void)w.files.remove(w.path(file));
    start(list);
    w.loop.advance(0);
    EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
    EXPECT_EQ(w.get(L"kategories.tt"), "new//100001/@/A\r\n\r\n");
    EXPECT_EQ(w.station_files.stations()->line(0), "NOVE01/@/Nov\xe9");
  }
}

// In the next run nothing is known of the last list, but the files have its bytes.
TEST_F(DownloadConversionTest, FilesThatHaveTheBytesAlreadyAreLeftAlone) {
  w.put(L"radios.tt", "NOVE01/@/Nov\xe9\r\n\r\n");
  w.put(L"kategories.tt", "new//100001/@/A\r\n\r\n");
  w.files.make_readonly(w.path(L"radios.tt")); // so that a replacement would fail
  w.files.make_readonly(w.path(L"kategories.tt"));
  for (const bool in_memory : {false, true}) {
    stations::StationFiles fresh(w.folder);
    const auto lines = in_memory ? fresh.stations() : nullptr;
    stations::DownloadConversion another({w.folder, fresh, *this, w.worker, w.loop});
    const auto stamp = w.files.stamp(w.path(L"radios.tt"));
    w.put(L"seznam.tt", list);
    const std::size_t reads = w.files.reads(w.path(L"radios.tt"));
    another.start(list.size(), [this](Conversion answer) { result = answer; });
    w.loop.advance(0);
    EXPECT_EQ(std::exchange(result, std::nullopt), Conversion::done);
    EXPECT_EQ(w.files.reads(w.path(L"radios.tt")) - reads, in_memory ? 0U : 1U);
    EXPECT_EQ(w.files.stamp(w.path(L"radios.tt")), stamp);
    EXPECT_EQ(fresh.stations()->line(0), "NOVE01/@/Nov\xe9");
    EXPECT_EQ(fresh.categories()->size(), 1U);
    EXPECT_EQ(fresh.stations() == lines, in_memory) << "one copy";
  }
}

TEST_F(DownloadConversionTest, OnlyTheFileThatDiffersIsReplaced) {
  start(list);
  w.loop.advance(0);
  const auto stations = w.files.stamp(w.path(L"radios.tt"));
  start("orb:k:new//100001/@/B\r\nNOVE01/@/Nov\xe9\r\n");
  w.loop.advance(0);
  EXPECT_EQ(w.files.stamp(w.path(L"radios.tt")), stations);
  EXPECT_EQ(w.get(L"kategories.tt"), "new//100001/@/B\r\n\r\n");
  EXPECT_EQ(w.station_files.categories()->at(0).name, L"B");
  const auto categories = w.files.stamp(w.path(L"kategories.tt"));
  start("orb:k:new//100001/@/B\r\nNOVE02/@/Nov\xe9\r\n");
  w.loop.advance(0);
  EXPECT_EQ(w.files.stamp(w.path(L"kategories.tt")), categories);
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE02/@/Nov\xe9\r\n\r\n");
  EXPECT_EQ(w.station_files.stations()->line(0), "NOVE02/@/Nov\xe9");
}

TEST_F(DownloadConversionTest, AFileThatDiffersAndCannotBeWrittenLeavesBoth) {
  start(list);
  w.loop.advance(0);
  w.files.make_readonly(w.path(L"kategories.tt"));
  start("orb:k:new//100001/@/B\r\nNOVE01/@/Nov\xe9\r\n");
  w.loop.advance(0);
  EXPECT_EQ(result, Conversion::not_written);
  EXPECT_EQ(w.get(L"kategories.tt"), "new//100001/@/A\r\n\r\n");
  start("orb:k:new//100001/@/B\r\nNOVE02/@/Nov\xe9\r\n");
  w.loop.advance(0);
  EXPECT_EQ(result, Conversion::not_written);
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
}

TEST_F(DownloadConversionTest, AnUnchangedListCanBeGivenUpByAnOrder) {
  start(list);
  w.loop.advance(0);
  result.reset();
  shown.clear();
  while_shown = [this] { conversion.give_up(); };
  start(list);
  w.loop.advance(1000);
  EXPECT_FALSE(result.has_value());
  EXPECT_EQ(shown.size(), 1U);
}

} // namespace
} // namespace lumotune::test
