// SPDX-License-Identifier: LGPL-2.1-or-later
// When the station file and the category file are read, and who sees what of them.
#include "stations/station_files.h"

#include "stations/download_conversion.h"
#include "stations/station_limits.h"
#include "stations/station_table.h"
#include "tests/support/stations_world.h"

#include <gtest/gtest.h>

#include <optional>

namespace lumotune::test {
namespace {

struct Silent final : stations::ConversionPort {
  void ZobrazReklamu(const std::wstring& /*text*/) override {}
  void ZobrazInfoPanel(const std::wstring& /*text*/) override {}
  void orders_end() override {}
};

struct StationFilesTest : testing::Test {
  StationsWorld w;
  Silent silent;
  stations::DownloadConversion conversion{{w.folder, w.station_files, silent, w.worker, w.loop}};

  StationFilesTest() { w.put(L"kategories.tt", "new//100001/@/A\r\n"); }
  [[nodiscard]] std::size_t reads(const wchar_t* name) const { return w.files.reads(w.path(name)); }
  [[nodiscard]] std::string first_line() { return std::string(w.station_files.stations()->line(0)); }
  [[nodiscard]] std::wstring first_category() {
    const auto nodes = w.station_files.categories();
    return nodes->empty() ? L"(none)" : nodes->front().name;
  }
  stations::Conversion update(const std::string& list) {
    w.put(L"seznam.tt", list);
    return convert(list.size());
  }
  stations::Conversion convert(std::uint64_t announced) {
    std::optional<stations::Conversion> result;
    conversion.start(announced, [&](stations::Conversion answer) { result = answer; });
    w.loop.advance(0);
    return result.value();
  }
};

TEST_F(StationFilesTest, AreReadOnceHoweverOftenTheyAreAskedFor) {
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(w.station_files.stations()->count(), 2U);
    EXPECT_EQ(first_category(), L"A");
  }
  EXPECT_EQ(reads(L"radios.tt"), 1U);
  EXPECT_EQ(reads(L"kategories.tt"), 1U);
}

TEST_F(StationFilesTest, EverybodyHasTheSameLines) {
  stations::StationTable table({w.station_files, w.codec});
  table.load();
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"První");
  EXPECT_EQ(table.lines(), w.station_files.stations()) << "not a copy of them";
  EXPECT_EQ(reads(L"radios.tt"), 1U);
}

TEST_F(StationFilesTest, AChangeOfTheSameLengthIsSeen) {
  w.put(L"radios.tt", "stara\r\n");
  EXPECT_EQ(first_line(), "stara");
  w.put(L"radios.tt", "novaa\r\n");
  EXPECT_EQ(first_line(), "novaa");
  w.files.clock_stands = true;
  w.put(L"radios.tt", "dalsi\r\n");
  EXPECT_EQ(first_line(), "dalsi") << "another file took the place";
  (void)w.files.append(w.path(L"radios.tt"), "x");
  EXPECT_EQ(w.station_files.stations()->count(), 2U) << "longer";
  w.put(L"kategories.tt", "new//100001/@/B\r\n");
  EXPECT_EQ(first_category(), L"B");
}

TEST_F(StationFilesTest, WhatIsHeldStaysAsItWas) {
  w.put(L"radios.tt", "stara\r\n");
  const auto held = w.station_files.stations();
  w.put(L"radios.tt", "nova\r\n");
  EXPECT_EQ(first_line(), "nova");
  EXPECT_EQ(held->line(0), "stara");
}

TEST_F(StationFilesTest, AMissingFileHoldsNothingAndIsSeenWhenItComes) {
  EXPECT_EQ(w.station_files.stations()->count(), 2U);
  EXPECT_EQ(first_category(), L"A");
  (void)w.files.remove(w.path(L"radios.tt"));
  (void)w.files.remove(w.path(L"kategories.tt"));
  EXPECT_EQ(w.station_files.stations()->count(), 0U);
  EXPECT_EQ(first_category(), L"(none)");
  w.put(L"radios.tt", "nova\r\n");
  w.put(L"kategories.tt", "new//100001/@/B\r\n");
  EXPECT_EQ(first_line(), "nova");
  EXPECT_EQ(first_category(), L"B");
}

TEST_F(StationFilesTest, AFileThatCannotBeReadNowIsTriedAgain) {
  EXPECT_EQ(w.station_files.stations()->count(), 2U);
  w.files.make_unreadable(w.path(L"radios.tt"));
  EXPECT_EQ(w.station_files.stations()->count(), 0U);
  w.files.mend(w.path(L"radios.tt"));
  EXPECT_EQ(w.station_files.stations()->count(), 2U) << "with the stamp of before";
}

// The file goes between the question for its stamp and the reading.
TEST_F(StationFilesTest, AReadingThatFailsIsNotRemembered) {
  w.files.before_read = [this](const std::wstring& path) { w.files.make_unreadable(path); };
  EXPECT_EQ(w.station_files.stations()->count(), 0U);
  w.files.before_read = nullptr;
  w.files.mend(w.path(L"radios.tt"));
  EXPECT_EQ(w.station_files.stations()->count(), 2U);
}

TEST_F(StationFilesTest, AFileThatChangesJustBeforeItIsReadIsReadAgain) {
  const auto change = [this](const char* bytes) {
    w.files.before_read = [this, bytes](const std::wstring& /*path*/) { w.put(L"radios.tt", bytes); };
  };
  change("prvni\r\n");
  EXPECT_EQ(first_line(), "prvni");
  w.files.before_read = nullptr;
  EXPECT_EQ(first_line(), "prvni");
  EXPECT_EQ(reads(L"radios.tt"), 2U) << "its stamp was older than what was read";
  EXPECT_EQ(first_line(), "prvni");
  EXPECT_EQ(reads(L"radios.tt"), 2U);
}

TEST_F(StationFilesTest, AFileThatIsTooLongHoldsNothing) {
  w.put(L"radios.tt", std::string(stations::max_station_bytes + 1, ' '));
  EXPECT_EQ(w.station_files.stations()->count(), 0U);
  w.put(L"radios.tt", "nova\r\n");
  EXPECT_EQ(first_line(), "nova");
}

TEST_F(StationFilesTest, AnUpdateHandsOverWhatItWrites) {
  EXPECT_EQ(w.station_files.stations()->count(), 2U);
  EXPECT_EQ(first_category(), L"A");
  const auto held = w.station_files.stations();
  ASSERT_EQ(update("orb:k:new//100001/@/C\r\nNOVE01/@/Nov\xe9\r\n"), stations::Conversion::done);
  EXPECT_EQ(first_line(), "NOVE01/@/Nov\xe9");
  EXPECT_EQ(w.station_files.stations()->count(), 2U) << "the empty line that closes the file";
  EXPECT_EQ(w.stations.RadioInfo(L"nove01", L"name"), L"Nové");
  EXPECT_EQ(first_category(), L"C");
  EXPECT_EQ(reads(L"radios.tt"), 1U) << "it is not read back";
  EXPECT_EQ(reads(L"kategories.tt"), 1U);
  EXPECT_EQ(w.get(L"radios.tt"), "NOVE01/@/Nov\xe9\r\n\r\n");
  EXPECT_TRUE(held->line(0).starts_with("RADIO1"));
}

// The first reading of another copy of the class finds the same as what was handed over.
TEST_F(StationFilesTest, WhatAnUpdateHandsOverIsWhatTheFilesHold) {
  ASSERT_EQ(update("orb:k:new//100001/@/C\r\norb:k:add//1000012/@/D\r\n\r\nA1\r\n\nB22222\r<end>\r\nC\n"),
            stations::Conversion::done);
  stations::StationFiles fresh(w.folder);
  const auto ours = w.station_files.stations();
  const auto read = fresh.stations();
  ASSERT_EQ(ours->count(), read->count());
  for (std::size_t i = 0; i < read->count(); ++i)
    EXPECT_EQ(ours->line(i), read->line(i));
  ASSERT_EQ(w.station_files.categories()->size(), 2U);
  EXPECT_EQ(fresh.categories()->size(), 2U);
  EXPECT_EQ(w.station_files.categories()->back().name, fresh.categories()->back().name);
}

TEST_F(StationFilesTest, AFileThatAnotherProgramChangesAfterAnUpdateIsRead) {
  ASSERT_EQ(update("NOVE01\r\n"), stations::Conversion::done);
  w.put(L"radios.tt", "JINE01\r\n\r\n");
  EXPECT_EQ(first_line(), "JINE01") << "of the same length";
}

TEST_F(StationFilesTest, AnUpdateThatFailsLeavesWhatThereIs) {
  const auto before = w.station_files.stations();
  EXPECT_EQ(convert(5), stations::Conversion::unreadable);
  w.files.make_readonly(w.path(L"kategories.tt"));
  EXPECT_EQ(update("NOVE01\r\n"), stations::Conversion::not_written);
  EXPECT_EQ(first_line(), before->line(0));
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"První");
  EXPECT_EQ(w.stations.RadioInfo(L"NOVE01", L"name"), L"");
}

} // namespace
} // namespace lumotune::test
