// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/line_walk.h"
#include "base/record_bytes.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "stations/station_limits.h"
#include "stations/station_table.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace lumotune::test {
namespace {

using base::record_field;
using stations::StationField;
using stations::StationRecord;

constexpr const wchar_t* file = L"C:\\Orb\\radios.tt";

// Fields "0/@/1/@/2..." of that many.
std::string record_of(int fields) {
  std::string line;
  for (int i = 0; i < fields; ++i)
    line += (i == 0 ? "" : "/@/") + std::to_string(i);
  return line;
}

struct TableWorld {
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  stations::StationFiles station_files{folder};
  stations::StationTable table{{station_files, codec}};

  void load(const std::string& bytes) {
    (void)files.replace(file, bytes);
    table.load();
  }
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < table.lines()->count(); ++i)
      all.emplace_back(table.lines()->line(i));
    return all;
  }
};

std::vector<std::string> walked(std::string_view bytes) {
  std::vector<std::string> lines;
  base::LineWalk walk(bytes);
  while (walk.next())
    lines.emplace_back(walk.line());
  return lines;
}

using Lines = std::vector<std::string>;

TEST(StationTable, AFileWithTooManyLinesIsNotUsed) {
  TableWorld w;
  const std::string most = std::string(stations::max_station_lines - 1, '\n') + "RADIO1/@/A\r\n";
  w.load(most);
  EXPECT_EQ(w.table.lines()->count(), stations::max_station_lines);
  EXPECT_TRUE(w.table.last_of(L"RADIO1").has_value());
  EXPECT_FALSE(w.table.lines()->too_many());
  EXPECT_EQ(w.table.lines()->line(stations::max_station_lines - 1), "RADIO1/@/A");
  w.load(most + "RADIO2/@/B\r\n");
  EXPECT_EQ(w.table.lines()->count(), 0U);
  EXPECT_FALSE(w.table.last_of(L"RADIO1").has_value());
  EXPECT_TRUE(w.table.lines()->too_many());
}

TEST(StationTable, AFileThatIsTooLongCountsAsUnreadable) {
  TableWorld w;
  w.load("RADIO1/@/A\r\n");
  w.load(std::string(stations::max_station_bytes + 1, ' '));
  EXPECT_EQ(w.table.lines()->count(), 0U);
}

TEST(LineWalk, EveryKindOfEndEndsALine) {
  EXPECT_EQ(walked(""), Lines());
  EXPECT_EQ(walked("a"), Lines({"a"}));
  EXPECT_EQ(walked("a\r\nb\nc\rd"), Lines({"a", "b", "c", "d"}));
  EXPECT_EQ(walked("\r\n\n\r"), Lines({"", "", ""}));
  EXPECT_EQ(walked("a\r\r\nb\n\rc"), Lines({"a", "", "b", "", "c"}));
  EXPECT_EQ(walked("a\r"), Lines({"a"}));
  EXPECT_EQ(walked("\n"), Lines({""}));
}

TEST(StationLines, KeepEveryLineAsItIs) {
  TableWorld w;
  w.load("a\r\nb\n\r\nc\rd\r\r\n\n  \r\nposledni");
  EXPECT_EQ(w.lines(), Lines({"a", "b", "", "c", "d", "", "", "  ", "posledni"}));
  EXPECT_EQ(w.table.lines()->line(9), "") << "past the last one";
}

TEST(StationLines, AreTheLinesThatTheWalkFinds) {
  TableWorld w;
  std::string bytes;
  unsigned state = 12345; // every short arrangement of ends and letters comes up
  for (int i = 0; i < 20000; ++i) {
    state = state * 1103515245U + 12345U;
    bytes += "\r\nab"[state >> 16 & 3U];
  }
  w.load(bytes);
  EXPECT_EQ(w.lines(), walked(bytes));
}

TEST(StationTable, AMissingOrUnreadableFileGivesAnEmptyTable) {
  TableWorld w;
  w.table.load();
  EXPECT_EQ(w.table.lines()->count(), 0U);
  w.load("RADIO1/@/Jedna\r\n");
  EXPECT_EQ(w.table.lines()->count(), 1U);
  w.files.make_unreadable(file);
  w.table.load();
  EXPECT_EQ(w.table.lines()->count(), 0U);
  EXPECT_EQ(w.table.RadioInfo(L"RADIO1", L"name"), L"");
}

TEST(StationTable, LinesThatAreHeldOutliveALoad) {
  TableWorld w;
  w.load("stara\r\n");
  const auto held = w.table.lines();
  w.load("nova\r\ndruha\r\n");
  EXPECT_EQ(held->line(0), "stara");
  EXPECT_EQ(w.lines(), Lines({"nova", "druha"}));
}

TEST(StationRecord, BothWaysOfReadingGiveTheSameFields) {
  const platform::memory::Codec codec;
  for (int fields = 0; fields <= 40; ++fields) {
    const std::string line = record_of(fields);
    const StationRecord record(line, codec);
    for (std::size_t number = 0; number < 17; ++number) {
      const std::string expected = static_cast<int>(number) < fields ? std::to_string(number) : "";
      const auto field = static_cast<StationField>(number);
      EXPECT_EQ(record_field(line, number), expected) << fields << " fields";
      EXPECT_EQ(record[field], expected) << fields << " fields";
      EXPECT_EQ(record.text(field), codec.decode(expected)) << fields << " fields";
      EXPECT_EQ(record_field(record.from(field), 0), expected) << fields << " fields";
    }
  }
}

TEST(StationRecord, WordsNameFields) {
  using enum StationField;
  for (const auto& [word, field] : {std::pair{L"name", name},
                                    {L"kk", category},
                                    {L"www", www},
                                    {L"u1", u1},
                                    {L"U5", u5},
                                    {L"k1", k1},
                                    {L"K5", k5},
                                    {L"KK", category},
                                    {L"WwW", www}})
    EXPECT_EQ(stations::station_field(word), field) << word;
  for (const wchar_t* other : {L"", L"u", L"u0", L"u6", L"k", L"k11", L"id", L"zeme", L"names"})
    EXPECT_EQ(stations::station_field(other), std::nullopt) << other;
  for (std::size_t quality = 1; quality <= 5; ++quality) {
    const std::wstring digit = std::to_wstring(quality);
    EXPECT_EQ(stations::station_field(L"u" + digit), stations::address_of(quality));
    EXPECT_EQ(stations::station_field(L"k" + digit), stations::bit_rate_of(quality));
  }
}

TEST(StationRecord, EmptyFieldsAreEmptyTexts) {
  EXPECT_EQ(record_field("/@//@/c", 0), "");
  EXPECT_EQ(record_field("/@//@/c", 1), "");
  EXPECT_EQ(record_field("/@//@/c", 2), "c");
  EXPECT_EQ(record_field("a/@/", 1), "");
  EXPECT_EQ(record_field("", 0), "");
}

TEST(StationRecord, NearlyADelimiterIsNone) {
  EXPECT_EQ(record_field("@/a/@b/@", 0), "@/a/@b/@");
  EXPECT_EQ(record_field("a@/b", 0), "a@/b");
  EXPECT_EQ(record_field("a/@/@/b", 0), "a");
  EXPECT_EQ(record_field("a/@/@/b", 1), "@/b") << "a delimiter's slash is used once";
  EXPECT_EQ(record_field("//@//b", 0), "/");
  EXPECT_EQ(record_field("//@//b", 1), "/b");
}

TEST(StationRecord, FieldsHaveTheirNames) {
  using enum StationField;
  const platform::memory::Codec codec;
  const StationRecord record(
      "ID/@/Jm\xe9no/@/tip/@/x/@/\xc8"
      "esko/@/100001/@/u1/@/u2/@/u3/@/u4/@/u5/@/k1/@/k2/@/k3/@/k4/@/k5/@/www/@/Popis/@/dal\x9a\xed",
      codec);
  EXPECT_EQ(record.text(id), L"ID");
  EXPECT_EQ(record.text(name), L"Jméno");
  EXPECT_EQ(record[marker], "tip");
  EXPECT_EQ(record[carried], "x");
  EXPECT_EQ(record.text(country), L"Česko");
  EXPECT_EQ(record[category], "100001");
  EXPECT_EQ(record[u1], "u1");
  EXPECT_EQ(record[u5], "u5");
  EXPECT_EQ(record[k1], "k1");
  EXPECT_EQ(record[k5], "k5");
  EXPECT_EQ(record.text(www), L"www") << "cut at a further delimiter";
  EXPECT_EQ(record.text(description), L"Popis/@/další") << "everything after it";
  EXPECT_EQ(codec.decode(record.from(www)), L"www/@/Popis/@/další");
}

TEST(StationTable, TheLastRecordOfAStationWins) {
  TableWorld w;
  w.load("RADIO1/@/Prvni\r\nRADIO2/@/Jine\r\nradio1/@/Druhe\r\n\r\n");
  EXPECT_EQ(w.table.last_of(L"Radio1")->text(StationField::name), L"Druhe");
  EXPECT_EQ(w.table.last_of(L"RADIO2")->text(StationField::name), L"Jine");
  EXPECT_FALSE(w.table.last_of(L"RADIO3").has_value());
  EXPECT_FALSE(w.table.last_of(L"RADIO").has_value()) << "six characters of the line are compared";
  EXPECT_FALSE(w.table.last_of(L"RADIO12").has_value());
}

TEST(StationTable, IdentifiersIgnoreTheCaseOfCzechLetters) {
  TableWorld w;
  w.load("\x8e\xc1"
         "BA01/@/Prvni\r\n");
  EXPECT_TRUE(w.table.last_of(L"žába01").has_value());
  EXPECT_FALSE(w.table.last_of(L"zaba01").has_value());
  w.load("?ABA01/@/Otaznik\r\n");
  EXPECT_FALSE(w.table
                   .last_of(L"\u8a9e"
                            L"ABA01")
                   .has_value())
      << "a character that the code page lacks is no question mark";
}

TEST(StationTable, AnIdentifierThatIsNotOfSixCharactersMeetsOnlyALineAsShort) {
  TableWorld w;
  w.load("AB/@/Kratke\r\nDELSI77/@/Dlouhe\r\nCD\r\n\r\n");
  EXPECT_FALSE(w.table.last_of(L"AB").has_value());
  EXPECT_FALSE(w.table.last_of(L"DELSI77").has_value());
  EXPECT_TRUE(w.table.last_of(L"DELSI7").has_value());
  EXPECT_EQ(w.table.last_of(L"CD")->text(StationField::id), L"CD");
}

TEST(StationTable, AnEmptyIdentifierIsNoStations) {
  for (const char* end : {"", "\r\n", "\r\n\r\n", "/@/Bez\r\n", "\r\n/@/Bez\r\n\r\n"}) {
    TableWorld w;
    w.load("RADIO1/@/A\r\n" + std::string(end));
    EXPECT_FALSE(w.table.last_of(L"").has_value());
    EXPECT_EQ(w.table.RadioInfo(L"", L"name"), L"");
  }
}

TEST(StationTable, RadioInfoAnswersItsWordsOnly) {
  TableWorld w;
  w.load("AB12cd/@/Jm\xe9no/@/tip/@/x/@/Zeme/@/100003/@/u1/@/u2/@/u3/@/u4/@/u5/@/64/@/128/@/192/@/256/@/320/@/www\r\n");
  const auto ask = [&](const wchar_t* what) { return w.table.RadioInfo(L"ab12CD", what); };
  EXPECT_EQ(ask(L"name"), L"Jméno");
  EXPECT_EQ(ask(L"u1"), L"u1");
  EXPECT_EQ(ask(L"U5"), L"u5");
  EXPECT_EQ(ask(L"k2"), L"128");
  EXPECT_EQ(ask(L"K2"), L"128");
  EXPECT_EQ(ask(L"k5"), L"320");
  for (const wchar_t* other : {L"kk", L"KK", L"www", L"WWW", L"zeme", L"ID", L"", L"u0", L"k6"})
    EXPECT_EQ(ask(other), L"") << other;
  EXPECT_EQ(w.table.RadioInfo(L"NIKDE1", L"name"), L"");
  EXPECT_EQ(w.table.RadioInfo(L"", L"name"), L"");
}

TEST(StationTable, HostileFilesAreJustLines) {
  TableWorld w;
  std::string bytes = std::string(1'000'000, 'x') + "\r\n" + std::string(300, '\0') + "\n";
  for (int fields = 0; fields <= 40; ++fields)
    bytes += record_of(fields) + "\r\n";
  bytes += "RADIO1/@/Zde/@/torn";
  w.load(bytes);
  EXPECT_EQ(w.table.lines()->count(), 2U + 41U + 1U);
  EXPECT_EQ(w.table.last_of(L"RADIO1")->text(StationField::marker), L"torn");
  EXPECT_EQ(w.table.RadioInfo(L"RADIO1", L"name"), L"Zde");
}

} // namespace
} // namespace lumotune::test
