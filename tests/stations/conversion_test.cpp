// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "platform/memory/worker.h"
#include "stations/conversion.h"
#include "stations/download_conversion.h"
#include "stations/station_files.h"
#include "stations/station_limits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

struct RecordingPort final : stations::ConversionPort {
  void ZobrazReklamu(const std::wstring& text) override { show(L"r:" + text); }
  void ZobrazInfoPanel(const std::wstring& text) override { show(L"i:" + text); }
  void orders_end() override { ++ends; }
  int ends = 0;
  void show(const std::wstring& text) {
    shown.push_back(text);
    if (during)
      during();
  }
  std::vector<std::wstring> shown;
  std::function<void()> during;
};

struct ConversionWorld {
  platform::memory::EventLoop loop;
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  platform::memory::Worker worker{loop};
  stations::StationFiles station_files{folder};
  RecordingPort port;
  stations::DownloadConversion conversion{{folder, station_files, port, worker, loop}};

  stations::Conversion convert_files(std::uint64_t announced) {
    std::optional<stations::Conversion> result;
    conversion.start(announced, [&](stations::Conversion answer) { result = answer; });
    EXPECT_FALSE(result.has_value()) << "it comes from the loop";
    loop.advance(0);
    return result.value();
  }
  stations::Conversion convert_files() { return convert_files(files.size(L"C:\\Orb\\seznam.tt").value_or(1)); }
  // The list as a whole program would convert it, with its orders shown.
  stations::Converted convert(const std::string& list) {
    put(L"seznam.tt", list);
    EXPECT_EQ(convert_files(), stations::Conversion::done);
    return stations::convert(list).value();
  }
  void put(const std::wstring& name, const std::string& bytes) { (void)files.replace(L"C:\\Orb\\" + name, bytes); }
  [[nodiscard]] std::string get(const std::wstring& name) const {
    return files.read(L"C:\\Orb\\" + name).value_or("(none)");
  }
};

using Shown = std::vector<std::wstring>;

TEST(Conversion, SortsTheLinesByTheirKinds) {
  ConversionWorld w;
  const auto result = w.convert("orb:k:new//100001/@/A\r\n\r\nRADIO1/@/Prvn\xed\r\norb:r:re\x9a\r\nRADIO2/@/B\r\n"
                                "orb:i:zpr\xe1va\r\norb:k:add//100001x/@/B\r\n<end>\r\n");
  EXPECT_EQ(result.stations, "RADIO1/@/Prvn\xed\r\nRADIO2/@/B\r\n\r\n");
  EXPECT_EQ(result.categories, "new//100001/@/A\r\nadd//100001x/@/B\r\n\r\n");
  EXPECT_EQ(w.port.shown, Shown({L"r:reš", L"i:zpráva"}));
}

TEST(Conversion, AListWithTheEndMarkerOnlyGivesTwoFilesOfOneEmptyLine) {
  ConversionWorld w;
  for (const char* list : {"<end>", "<end>\r\n", "<END>\n\n", ""}) {
    const auto result = w.convert(list);
    EXPECT_EQ(result.stations, "\r\n");
    EXPECT_EQ(result.categories, "\r\n");
  }
}

TEST(Conversion, GoesOnAfterTheEndMarker) {
  ConversionWorld w;
  EXPECT_EQ(w.convert("<end>\r\nRADIO1\r\n<end>\r\nRADIO2").stations, "RADIO1\r\nRADIO2\r\n\r\n");
}

TEST(Conversion, TheEndMarkerIsAWholeLine) {
  ConversionWorld w;
  EXPECT_EQ(w.convert("<end>x\r\n<end\r\n <end>\r\n").stations, "<end>x\r\n<end\r\n <end>\r\n\r\n");
}

TEST(Conversion, PrefixesIgnoreLetterCase) {
  ConversionWorld w;
  const auto result = w.convert("ORB:K:new//1\nOrb:R:a\norb:I:b\n");
  EXPECT_EQ(result.categories, "new//1\r\n\r\n");
  EXPECT_EQ(result.stations, "\r\n");
  EXPECT_EQ(w.port.shown, Shown({L"r:a", L"i:b"}));
}

TEST(Conversion, APrefixAloneCarriesAnEmptyText) {
  ConversionWorld w;
  const auto result = w.convert("orb:k:\r\norb:r:\r\norb:i:\r\n");
  EXPECT_EQ(result.categories, "\r\n\r\n");
  EXPECT_EQ(w.port.shown, Shown({L"r:", L"i:"}));
}

TEST(Conversion, AnythingElseIsAStationAsItCame) {
  ConversionWorld w;
  EXPECT_EQ(w.convert("orb:x:y\r\norb:k\r\n \xff\x01/@/\r\nnew//100001/@/A\r\n").stations,
            "orb:x:y\r\norb:k\r\n \xff\x01/@/\r\nnew//100001/@/A\r\n\r\n");
}

TEST(Conversion, EveryLineEndBecomesAPair) {
  ConversionWorld w;
  EXPECT_EQ(w.convert("A\nB\rC\r\nD").stations, "A\r\nB\r\nC\r\nD\r\n\r\n");
}

TEST(Conversion, HostileListsAreKept) {
  ConversionWorld w;
  const std::string huge(1'000'000, 'q');
  EXPECT_EQ(w.convert(huge + "\n" + huge).stations, huge + "\r\n" + huge + "\r\n\r\n");
  const std::string binary("\0\x1a\xff\0", 4);
  EXPECT_EQ(w.convert(binary).stations, binary + "\r\n\r\n");
}

TEST(Conversion, TenOrdersOfAKindAreCarriedOutInTheirOrder) {
  ConversionWorld w;
  std::string list;
  Shown expected;
  for (int i = 0; i < 15; ++i) {
    list += "orb:r:" + std::to_string(i) + "\r\norb:i:" + std::to_string(i) + "\r\n";
    if (i < 10) {
      expected.push_back(L"r:" + std::to_wstring(i));
      expected.push_back(L"i:" + std::to_wstring(i));
    }
  }
  EXPECT_EQ(w.convert(list).stations, "\r\n");
  EXPECT_EQ(w.port.shown, expected);
  EXPECT_EQ(w.port.ends, 1);
  w.convert("RADIO1\r\n");
  EXPECT_EQ(w.port.ends, 1) << "no orders, no end of them";
}

TEST(Conversion, AnOrderThatIsTooLongIsNone) {
  ConversionWorld w;
  const std::string longest(stations::max_order_bytes, 'x');
  w.convert("orb:i:" + longest + "x\r\norb:r:" + longest + "x\r\norb:i:" + longest + "\r\n");
  ASSERT_EQ(w.port.shown.size(), 1U);
  EXPECT_EQ(w.port.shown[0].size(), longest.size() + 2);
}

TEST(Conversion, FiveThousandCategoriesAreKept) {
  ConversionWorld w;
  std::string list;
  for (int i = 0; i < 5010; ++i)
    list += "orb:k:new//" + std::to_string(100000 + i) + "/@/x\r\n";
  const std::string categories = w.convert(list).categories;
  EXPECT_TRUE(categories.ends_with("new//104999/@/x\r\n\r\n"));
  EXPECT_EQ(std::count(categories.begin(), categories.end(), '\n'), 5001);
}

TEST(Conversion, AListOfTooManyLinesIsRefusedAsAWhole) {
  ConversionWorld w;
  std::string list = "orb:i:text\r\norb:r:text\r\n";
  for (std::size_t i = 2; i < stations::max_station_lines; ++i)
    list += "x\n";
  EXPECT_TRUE(stations::convert(list).has_value());
  EXPECT_FALSE(stations::convert(list + "y").has_value());
  w.put(L"seznam.tt", list + "y");
  EXPECT_EQ(w.convert_files(), stations::Conversion::too_long);
  EXPECT_TRUE(w.port.shown.empty());
  EXPECT_EQ(w.get(L"radios.tt"), "(none)");
}

TEST(Conversion, AListWhoseStationsCouldNotBeReadBackIsRefused) {
  ConversionWorld w;
  std::string list = "orb:i:text\n";
  list.append(stations::max_station_bytes - 3, 'x').append("\n"); // its end becomes two bytes, and two more follow
  EXPECT_FALSE(stations::convert(list).has_value());
  list.erase(list.size() - 2, 1);
  const auto longest = stations::convert(list);
  ASSERT_TRUE(longest.has_value());
  EXPECT_EQ(longest->stations.size(), stations::max_station_bytes);
}

TEST(Conversion, AListThatIsNotAsLongAsAnnouncedIsNotConverted) {
  ConversionWorld w;
  w.put(L"seznam.tt", "orb:r:text\r\nRADIO1\r\n");
  const std::uint64_t length = w.files.size(L"C:\\Orb\\seznam.tt").value();
  for (const std::uint64_t announced : {std::uint64_t{0}, length - 1, length + 1})
    EXPECT_EQ(w.convert_files(announced), stations::Conversion::unreadable);
  EXPECT_TRUE(w.port.shown.empty());
  EXPECT_EQ(w.get(L"radios.tt"), "(none)");
}

TEST(Conversion, ReplacesBothFiles) {
  ConversionWorld w;
  w.put(L"radios.tt", "stara\r\n");
  w.put(L"kategories.tt", "stara\r\n");
  w.put(L"seznam.tt", "orb:k:new//1/@/A\r\nRADIO1\r\n<end>\r\n");
  EXPECT_EQ(w.convert_files(), stations::Conversion::done);
  EXPECT_EQ(w.get(L"radios.tt"), "RADIO1\r\n\r\n");
  EXPECT_EQ(w.get(L"kategories.tt"), "new//1/@/A\r\n\r\n");
  EXPECT_EQ(w.get(L"seznam.tt"), "orb:k:new//1/@/A\r\nRADIO1\r\n<end>\r\n");
}

TEST(Conversion, ShowsWhatTheListSaysBeforeTheFilesAreReplaced) {
  ConversionWorld w;
  w.put(L"radios.tt", "stara\r\n");
  w.put(L"seznam.tt", "RADIO1\r\norb:i:text\r\n");
  std::string then;
  w.port.during = [&] { then = w.get(L"radios.tt"); };
  EXPECT_EQ(w.convert_files(), stations::Conversion::done);
  EXPECT_EQ(then, "stara\r\n");
}

TEST(Conversion, AnUnreadableListChangesNothing) {
  ConversionWorld w;
  w.put(L"radios.tt", "stara\r\n");
  EXPECT_EQ(w.convert_files(), stations::Conversion::unreadable) << "missing";
  w.put(L"seznam.tt", "orb:r:text\r\nRADIO1\r\n");
  w.files.make_unreadable(L"C:\\Orb\\seznam.tt");
  EXPECT_EQ(w.convert_files(), stations::Conversion::unreadable);
  EXPECT_EQ(w.get(L"radios.tt"), "stara\r\n");
  EXPECT_EQ(w.get(L"kategories.tt"), "(none)");
  EXPECT_EQ(w.port.shown, Shown());
}

TEST(Conversion, ListsThatDifferHaveOtherMarks) {
  const std::string list = "orb:k:new//1/@/A\r\nRADIO1/@/Prvn\xed\r\n";
  EXPECT_EQ(stations::list_mark(list), stations::list_mark(std::string(list)));
  for (std::size_t at = 0; at < list.size(); ++at) {
    for (const int bit : {1, 0x80}) {
      std::string other = list;
      other[at] = static_cast<char>(other[at] ^ bit);
      EXPECT_NE(stations::list_mark(other), stations::list_mark(list)) << at << ' ' << bit;
    }
    EXPECT_NE(stations::list_mark(list.substr(0, at)), stations::list_mark(list)) << at;
  }
  EXPECT_NE(stations::list_mark(list + std::string(1, '\0')), stations::list_mark(list));
  EXPECT_NE(stations::list_mark("RADIO1\r\nRADIO2\r\n"), stations::list_mark("RADIO2\r\nRADIO1\r\n"));
}

TEST(Conversion, BothFilesAreReplacedOrNeither) {
  for (const wchar_t* locked : {L"radios.tt", L"kategories.tt"}) {
    ConversionWorld w;
    w.put(L"radios.tt", "stara r\r\n");
    w.put(L"kategories.tt", "stara k\r\n");
    w.put(L"seznam.tt", "orb:k:new//1/@/A\r\nRADIO1\r\n");
    w.files.make_readonly(std::wstring(L"C:\\Orb\\") + locked);
    EXPECT_EQ(w.convert_files(), stations::Conversion::not_written) << locked;
    EXPECT_EQ(w.get(L"radios.tt"), "stara r\r\n");
    EXPECT_EQ(w.get(L"kategories.tt"), "stara k\r\n");
  }
}

} // namespace
} // namespace lumotune::test
