// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/favourite_lists.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct FavouriteListsTest : testing::Test {
  PlayerWorld w;
  player::FavouriteLists lists{{w.folder, w.station_files, w.dialogs, w.favourites}};

  FavouriteListsTest() {
    w.put(L"radios.tt", PlayerWorld::record("RADIO1", "Prvn\xed", "http://a/1", "http://a/2") +
                            PlayerWorld::record("radio2", "Druh\xe9", "http://b/1", "http://b/2") +
                            PlayerWorld::record("radio3",
                                                "T\xf8"
                                                "et\xed",
                                                "C:\\tajne.mp3", "http://a/2\" /x"));
  }
  void import(const std::string& bytes) {
    (void)w.files.replace(L"D:\\moje.m3u", bytes);
    lists.import_list(L"D:\\moje.m3u");
  }
  [[nodiscard]] std::wstring told() const { return w.dialogs.shown.empty() ? L"" : w.dialogs.shown.back().text; }
};

TEST_F(FavouriteListsTest, AreExportedWithNamesAndAddresses) {
  w.put(L"list.tt", "\r\nlt:RADIO1/2\r\nlt:neznam/1\r\nlt:RADIO2/1\r\nsmeti\r\n");
  lists.export_list();
  EXPECT_EQ(w.get(L"oblibene.m3u"), "#EXTM3U\r\n#EXTINF:-1,Prvn\xed (128 kbps)\r\nhttp://a/2\r\n"
                                    "#EXTINF:-1,Druh\xe9 (64 kbps)\r\nhttp://b/1\r\n");
  EXPECT_EQ(told(), L"Oblíbené stanice jsou uloženy v souboru:\r\nC:\\Orb\\oblibene.m3u\r\nPočet stanic: 2");
}

TEST_F(FavouriteListsTest, WhatIsNoAddressOfTheNetworkIsNotExported) {
  w.put(L"list.tt", "lt:radio3/1\r\nlt:radio3/2\r\n");
  lists.export_list();
  EXPECT_EQ(w.get(L"oblibene.m3u"), "#EXTM3U\r\n");
}

TEST_F(FavouriteListsTest, AnExportThatCannotBeWrittenIsTold) {
  w.put(L"oblibene.m3u", "stary");
  w.files.make_readonly(w.path(L"oblibene.m3u"));
  lists.export_list();
  EXPECT_EQ(w.get(L"oblibene.m3u"), "stary");
  EXPECT_EQ(told(), L"Oblíbené se nepodařilo uložit do souboru:\r\nC:\\Orb\\oblibene.m3u");
}

TEST_F(FavouriteListsTest, KnownAddressesAreImportedAndUnknownOnesTold) {
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  import("\xef\xbb\xbf#EXTM3U\r\n#EXTINF:-1,x\r\nhttp://b/2\r\n\r\n  http://a/1 \nhttp://jinde/x\r\nhttp://b/2\r\n");
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\nlt:radio2/2\r\n");
  EXPECT_EQ(told(), L"Přidáno do oblíbených: 1\r\nUž v nich byly: 2\r\nNeznámé adresy: 1\r\nhttp://jinde/x");
  EXPECT_TRUE(w.did(L"ZobrazOblibene"));
}

TEST_F(FavouriteListsTest, WhatWasExportedComesBack) {
  const std::string favourites = "lt:RADIO1/2\r\nlt:radio2/1\r\n";
  w.put(L"list.tt", favourites);
  lists.export_list();
  w.put(L"list.tt", "");
  import(w.get(L"oblibene.m3u"));
  EXPECT_EQ(w.get(L"list.tt"), favourites);
}

TEST_F(FavouriteListsTest, OfSeveralRecordsOfAStationTheLastOneCounts) {
  w.put(L"radios.tt", PlayerWorld::record("RADIO1", "a", "http://stara", "http://a/2") +
                          PlayerWorld::record("radio1", "b", "http://nova", "http://b/2"));
  import("http://stara\r\nhttp://nova\r\n");
  EXPECT_EQ(w.get(L"list.tt"), "lt:radio1/1\r\n");
}

TEST_F(FavouriteListsTest, AHostilePlaylistIsBounded) {
  std::string bytes;
  for (int i = 0; i < 5000; ++i)
    bytes += std::string(150, 'x') + "\x01\r\n";
  import(bytes);
  EXPECT_LT(told().size(), 800U);
  EXPECT_EQ(told().find(L'\x01'), std::wstring::npos);
  EXPECT_NE(told().find(L"Neznámé adresy: 1000\r\n"), std::wstring::npos);
  w.dialogs.shown.clear();
  import(std::string(player::FavouriteLists::max_bytes + 1, 'x'));
  EXPECT_EQ(told(), L"Seznam nelze přečíst, nebo je příliš dlouhý.");
}

TEST_F(FavouriteListsTest, FavouritesThatCannotBeSavedStayAsTheyAre) {
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  import("http://b/1\r\n");
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  EXPECT_EQ(told(), stations::favourites_not_saved);
}

} // namespace
} // namespace lumotune::test
