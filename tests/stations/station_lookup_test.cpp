// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_limits.h"
#include "tests/support/stations_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(StationLookup, AnswersEveryFieldItKnows) {
  StationsWorld w;
  const auto ask = [&](const wchar_t* field) { return w.stations.RadioInfo(L"RADIO1", field); };
  EXPECT_EQ(ask(L"name"), L"První");
  EXPECT_EQ(ask(L"kk"), L"100001");
  EXPECT_EQ(ask(L"u1"), L"u1a");
  EXPECT_EQ(ask(L"u5"), L"u5");
  EXPECT_EQ(ask(L"k1"), L"64");
  EXPECT_EQ(ask(L"k5"), L"320");
  EXPECT_EQ(ask(L"www"), L"www.example/@/zbytek") << "everything after the sixteenth delimiter";
  for (const wchar_t* unknown : {L"u0", L"u6", L"zeme", L"ID", L"", L"k10", L"x1"})
    EXPECT_EQ(ask(unknown), L"") << unknown;
}

TEST(StationLookup, IgnoresTheLetterCaseOfIdentifiers) {
  StationsWorld w;
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO2", L"name"), L"Druhé");
  w.put(L"radios.tt", "\x8e"
                      "ABCD1/@/H\xe1\xe8"
                      "ek/@/\r\n");
  EXPECT_EQ(w.stations.RadioInfo(L"žabcd1", L"name"), L"Háček");
}

TEST(StationLookup, TheLastOfSeveralLinesWins) {
  StationsWorld w;
  w.put(L"radios.tt",
        StationsWorld::record("RADIO1", "Stare", "a", "b") + StationsWorld::record("radio1", "Nove", "c", "d"));
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"Nove");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"u2"), L"d");
}

TEST(StationLookup, AFileWithTooManyLinesIsNotUsed) {
  StationsWorld w;
  const std::string most =
      std::string(stations::max_station_lines - 1, '\n') + StationsWorld::record("RADIO1", "A", "a", "b");
  w.put(L"radios.tt", most);
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"A");
  w.put(L"radios.tt", most + StationsWorld::record("RADIO2", "B", "a", "b"));
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"");
}

TEST(StationLookup, MissingFieldsAreEmpty) {
  StationsWorld w;
  w.put(L"radios.tt", "RADIO1/@/Kratke\r\nRADIO2");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"Kratke");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"u3"), L"");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"www"), L"");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO2", L"name"), L"") << "a line without an end and without fields";
}

TEST(StationLookup, AMissingFileOrStationGivesEmptyTexts) {
  StationsWorld w;
  EXPECT_EQ(w.stations.RadioInfo(L"NIKDE1", L"name"), L"");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO", L"name"), L"") << "six characters identify a station";
  EXPECT_EQ(w.stations.RadioInfo(L"", L"name"), L"");
  w.files.make_unreadable(w.path(L"radios.tt"));
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"");
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST(StationLookup, AChangedFileIsSeenAtTheNextCall) {
  StationsWorld w;
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"První");
  w.put(L"radios.tt", "RADIO1/@/Jine\r\n");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"Jine");
  w.put(L"radios.tt", "RADIO1/@/Dalsi\r\n");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"Dalsi");
  (void)w.files.remove(w.path(L"radios.tt"));
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"");
}

TEST(StationLookup, ReadsAFileThatDoesNotChangeOnce) {
  StationsWorld w;
  for (int i = 0; i < 3; ++i) {
    for (const wchar_t* field : {L"name", L"kk", L"u1", L"k5", L"www", L"zeme"})
      (void)w.stations.RadioInfo(L"RADIO1", field);
    EXPECT_EQ(w.stations.RadioInfo(L"NIKDE1", L"name"), L"");
  }
  EXPECT_EQ(w.files.reads(w.path(L"radios.tt")), 1U);
}

TEST(StationLookup, SurvivesHostileFiles) {
  StationsWorld w;
  w.put(L"radios.tt", std::string(2'000'000, 'x') + "\r\n" + std::string(300, '\0') + "\n\r\rRADIO1/@/Zde\n/@//@/");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"Zde");
  w.put(L"radios.tt", "");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"");
}

TEST(StationLookup, FieldNamesIgnoreLetterCase) {
  StationsWorld w;
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"NAME"), L"První");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"U2"), L"u2a");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"K2"), L"128");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"KK"), L"100001");
  EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"WWW"), L"www.example/@/zbytek");
}

TEST(StationLookup, EveryKindOfLineEndEndsALine) {
  StationsWorld w;
  for (const char* end : {"\n", "\r", "\r\n"}) {
    w.put(L"radios.tt", std::string("RADIO1/@/A") + end + end + "RADIO1/@/B" + end + "RADIO2/@/C");
    EXPECT_EQ(w.stations.RadioInfo(L"RADIO1", L"name"), L"B");
    EXPECT_EQ(w.stations.RadioInfo(L"RADIO2", L"name"), L"C") << "the last line needs no end";
  }
}

TEST(StationLookup, ACharacterWithoutAByteMatchesNothing) {
  StationsWorld w;
  w.put(L"radios.tt", "?ABCD1/@/Otaznik\r\n");
  EXPECT_EQ(w.stations.RadioInfo(L"?ABCD1", L"name"), L"Otaznik");
  EXPECT_EQ(w.stations.RadioInfo(L"\u8a9eABCD1", L"name"), L"");
}

} // namespace
} // namespace lumotune::test
