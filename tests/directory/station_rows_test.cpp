// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/directory/rows_world.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

TEST(StationRows, ShowNameCountryAndMarker) {
  RowsWorld w;
  w.all(station("RADIO1", "Prvn\xed", "", "100001") + station("RADIO2", "Druh\xe9", "tip (novinka)", "100001"));
  ASSERT_EQ(w.rows.count(), 2U);
  EXPECT_EQ(w.rows.text(1, 0), L"První");
  EXPECT_EQ(w.rows.text(1, 1), L"Česko");
  EXPECT_FALSE(w.rows.bold(1));
  EXPECT_EQ(w.rows.text(2, 0), L"Druhé(novinka)");
  EXPECT_TRUE(w.rows.bold(2));
  EXPECT_EQ(w.rows.key(2), L"orbRADIO2");
}

// The search for typed letters sees what the list shows.
TEST(StationRows, ARowsBeginningIsThatOfItsText) {
  RowsWorld w;
  w.all(station("RADIO1", "\xdeluv\x9a", "", "1") + station("RADIO2", "Druh\xe9", "tip (nov\xe9)", "1") +
        station("RADIO3", "", "tip-jen", "1") + "RADIO4\r\n");
  ASSERT_EQ(w.rows.count(), 4U);
  for (std::size_t row = 0; row <= 5; ++row) {
    for (std::size_t room = 0; room < 15; ++room) {
      std::wstring beginning(room + 1, L'#');
      const std::size_t length = w.rows.beginning(row, beginning.data(), room);
      EXPECT_EQ(beginning.substr(0, length), w.rows.text(row, 0).substr(0, room)) << row;
      EXPECT_EQ(beginning[length], L'#') << "nothing behind it";
    }
  }
}

TEST(StationRows, TheMarkerAppendsFromItsFifthCharacter) {
  RowsWorld w;
  w.all(station("RADIO1", "A", "tip", "") + station("RADIO2", "B", "tip!", "") +
        station("RADIO3", "C", "TIP! Text", "") + station("RADIO4", "D", "redakce", "") +
        station("RADIO5", "E", "ti", "") + station("RADIO6", "F", " tip", ""));
  EXPECT_EQ(w.rows.text(1, 0), L"A");
  EXPECT_TRUE(w.rows.bold(1));
  EXPECT_EQ(w.rows.text(2, 0), L"B");
  EXPECT_TRUE(w.rows.bold(2));
  EXPECT_EQ(w.rows.text(3, 0), L"C Text");
  EXPECT_TRUE(w.rows.bold(3));
  EXPECT_EQ(w.rows.text(4, 0), L"Dkce") << "whatever the marker is";
  EXPECT_FALSE(w.rows.bold(4));
  EXPECT_FALSE(w.rows.bold(5));
  EXPECT_FALSE(w.rows.bold(6));
}

TEST(StationRows, OutsideTheRowsThereIsNothing) {
  RowsWorld w;
  EXPECT_EQ(w.rows.count(), 0U);
  w.all(station("RADIO1", "A", "tip", ""));
  for (const std::size_t row : {0U, 2U, 4000000000U}) {
    EXPECT_EQ(w.rows.text(row, 0), L"");
    EXPECT_EQ(w.rows.text(row, 1), L"");
    EXPECT_EQ(w.rows.key(row), L"");
    EXPECT_FALSE(w.rows.bold(row));
  }
  EXPECT_EQ(w.rows.text(1, 2), L"") << "there are two columns";
  w.rows.clear();
  EXPECT_EQ(w.rows.count(), 0U);
  EXPECT_EQ(w.rows.find(L"RADIO1"), 0U);
  w.rows.show_all(nullptr);
  EXPECT_EQ(w.rows.count(), 0U);
}

TEST(StationRows, ASecondStationOfOneIdentifierIsNotAdded) {
  RowsWorld w;
  w.all(station("RADIO1", "A", "", "") + station("radio1", "B", "", "") + station("RADIO2", "C", "", "") +
        station("RADIO11", "D", "", "") + station("\x8e", "E", "", "") + station("\x9e", "F", "", ""));
  EXPECT_EQ(w.keys(), Keys({L"orbRADIO1", L"orbRADIO2", L"orbRADIO11", L"orbŽ"}))
      << "the whole identifier counts, its letter case does not";
  EXPECT_EQ(w.rows.text(1, 0), L"A");
}

TEST(StationRows, KeepTheOrderOfTheFileAndSkipEmptyLines) {
  RowsWorld w;
  w.all("\r\n" + station("ZZZZZZ", "Z", "", "") + "\r\n\r\n" + station("AAAAAA", "A", "", "") + "\r\n");
  EXPECT_EQ(w.keys(), Keys({L"orbZZZZZZ", L"orbAAAAAA"}));
}

TEST(StationRows, AStationIsFoundByItsIdentifier) {
  RowsWorld w;
  w.all(station("RADIO1", "A", "", "1") + station("RADIO2", "B", "", "2") + station("RADIO3", "C", "", "1"));
  EXPECT_EQ(w.rows.find(L"radio3"), 3U);
  EXPECT_EQ(w.rows.find(L"RADIO4"), 0U);
  EXPECT_EQ(w.rows.find(L""), 0U);
  EXPECT_EQ(w.rows.find(L"\u8a9e"), 0U);
  EXPECT_EQ(w.category(L"1").size(), 2U);
  EXPECT_EQ(w.rows.find(L"RADIO3"), 2U) << "among the rows shown";
  EXPECT_EQ(w.rows.find(L"RADIO2"), 0U);
}

TEST(StationRows, ACategoryShowsTheStationsWhoseCodeBeginsSo) {
  RowsWorld w;
  w.put(station("RADIO1", "A", "", "100001") + station("RADIO2", "B", "", "100001ab") +
        station("RADIO3", "C", "", "100002ab") + station("RADIO4", "D", "", "100001AC") +
        station("RADIO5", "E", "", ""));
  EXPECT_EQ(w.category(L"100001"), Keys({L"orbRADIO1", L"orbRADIO2", L"orbRADIO4"}));
  EXPECT_EQ(w.category(L"100001ab"), Keys({L"orbRADIO2"}));
  EXPECT_EQ(w.category(L"100001a"), Keys({L"orbRADIO2", L"orbRADIO4"})) << "letter case is ignored";
  EXPECT_EQ(w.category(L"100001abc"), Keys()) << "a code shorter than the category";
  EXPECT_EQ(w.category(L"100009"), Keys());
  EXPECT_EQ(w.category(L"\u8a9e"), Keys());
  EXPECT_EQ(w.category(L"").size(), 5U);
}

TEST(StationRows, TheXFormShowsAStationByItsSubcategoryAlone) {
  RowsWorld w;
  w.put(station("RADIO1", "A", "", "100001rock") + station("RADIO2", "B", "", "100002ROCK") +
        station("RADIO3", "C", "", "100002rocky") + station("RADIO4", "D", "", "100002") +
        station("RADIO5", "E", "", "1"));
  EXPECT_EQ(w.category(L"xrock"), Keys({L"orbRADIO1", L"orbRADIO2"}));
  EXPECT_EQ(w.category(L"Xrock"), Keys({L"orbRADIO1", L"orbRADIO2"}));
  EXPECT_EQ(w.category(L"x"), Keys({L"orbRADIO4", L"orbRADIO5"})) << "no subcategory part";
  EXPECT_EQ(w.category(L"xnic"), Keys());
}

TEST(StationRows, OnlyTheWholeSpecialIdentifierMeansEveryStation) {
  RowsWorld w;
  w.put(station("RADIO1", "A", "", "100001") + station("RADIO2", "B", "", "1000007"));
  std::wstring Kategorie = L"100000";
  w.rows.ZobrazKategoriiRadii(w.lines, Kategorie);
  EXPECT_EQ(w.rows.count(), 2U);
  EXPECT_EQ(Kategorie, L"");
  Kategorie = L"1000007";
  w.rows.ZobrazKategoriiRadii(w.lines, Kategorie);
  EXPECT_EQ(w.keys(), Keys({L"orbRADIO2"}));
  EXPECT_EQ(Kategorie, L"1000007");
}

TEST(StationRows, ShowWhatTheyWereMadeOfWhileTheTableIsLoadedAnew) {
  RowsWorld w;
  w.all(station("RADIO1", "Stare", "tip", "100001"));
  w.put("");
  EXPECT_EQ(w.rows.text(1, 0), L"Stare");
  EXPECT_EQ(w.rows.key(1), L"orbRADIO1");
}

TEST(StationRows, LetGoOfTheLinesWhenTheyAreCleared) {
  RowsWorld w;
  w.all(station("RADIO1", "A", "", ""));
  EXPECT_GT(w.lines.use_count(), 1);
  w.rows.clear();
  EXPECT_EQ(w.lines.use_count(), 1);
}

TEST(StationRows, AnyNumberOfStationsCanBeLookedUpInVain) {
  RowsWorld w;
  std::string bytes;
  for (int i = 1; i <= 2100; ++i) {
    bytes += station(std::to_string(i), "N", "", "");
    if (i < 500 || (i > 520 && i < 1000) || (i > 1030 && i < 2040))
      continue;
    w.all(bytes);
    EXPECT_EQ(w.rows.find(std::to_wstring(i)), static_cast<std::size_t>(i));
    EXPECT_EQ(w.rows.find(L"jine"), 0U);
  }
}

TEST(StationRows, CategoriesCanBeSwitchedForEver) {
  RowsWorld w;
  std::string bytes;
  for (int i = 0; i < 600; ++i)
    bytes += station(std::to_string(i), "N", "", std::to_string(100001 + i % 3));
  w.put(bytes);
  for (int turn = 0; turn < 60; ++turn) {
    EXPECT_EQ(w.category(std::to_wstring(100001 + turn % 3)).size(), 200U);
    EXPECT_EQ(w.rows.find(std::to_wstring(turn % 3)), 1U);
    EXPECT_EQ(w.rows.find(std::to_wstring((turn + 1) % 3)), 0U);
  }
}

TEST(StationRows, RecordsOfAnyNumberOfFieldsAreShown) {
  RowsWorld w;
  std::string bytes;
  for (int fields = 1; fields <= 40; ++fields) {
    std::string line = "F" + std::to_string(fields);
    for (int i = 1; i < fields; ++i)
      line += "/@/" + std::to_string(i);
    bytes += line + "\r\n";
  }
  w.all(bytes + "/@/Bez id\r\n" + std::string(1'000'000, 'y') + "\r\n/@//@//@/\r\n");
  ASSERT_EQ(w.rows.count(), 42U) << "the second one without an identifier is not added";
  EXPECT_EQ(w.rows.text(1, 0), L"");
  EXPECT_EQ(w.rows.text(2, 0), L"1");
  EXPECT_EQ(w.rows.text(40, 1), L"4");
  EXPECT_EQ(w.rows.key(41), L"orb");
  EXPECT_EQ(w.rows.text(41, 0), L"Bez id");
  EXPECT_EQ(w.rows.find(L""), 0U) << "an empty identifier is no station's";
  EXPECT_EQ(w.rows.key(42).size(), 1'000'003U);
  EXPECT_EQ(w.category(L"5").size(), 35U) << "those that have a category field";
}

TEST(StationRows, ManyStationsAreEachAddedOnce) {
  RowsWorld w;
  std::string bytes;
  for (int turn = 0; turn < 2; ++turn) {
    for (int i = 0; i < 20000; ++i)
      bytes += station(std::to_string(i), "N", "", i % 2 == 0 ? "100001" : "100002");
  }
  w.all(bytes);
  ASSERT_EQ(w.rows.count(), 20000U);
  EXPECT_EQ(w.rows.find(L"12345"), 12346U);
  EXPECT_EQ(w.rows.key(20000), L"orb19999");
  EXPECT_EQ(w.category(L"100002").size(), 10000U);
  EXPECT_EQ(w.rows.find(L"12345"), 6173U);
}

} // namespace
} // namespace lumotune::test
