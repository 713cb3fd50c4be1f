// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/drops.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::AddressOrigin;

struct DropsTest : testing::Test {
  PlayerWorld w;
  player::FavouriteLists favourite_lists{{w.folder, w.station_files, w.dialogs, w.favourites}};
  player::Drops drops{{w.session, w.form, w.folder, w.dialogs, w.playback, w.status, favourite_lists}};

  DropsTest() { w.player.set_auto_start(false); }
  void file(const std::wstring& path, const std::string& bytes = "x") { (void)w.files.replace(path, bytes); }
  void drop(const std::vector<std::wstring>& paths) { drops.dropped({paths, L"", nullptr}); }
  void drop_text(const std::wstring& text) { drops.dropped({{}, text, nullptr}); }
  [[nodiscard]] bool refused() const {
    return !w.player.playing() && w.dialogs.shown.size() == 1 && w.dialogs.shown[0].text == player::drop_refused;
  }
};

TEST_F(DropsTest, AListOrASoundPlaysAsAFileOfThisMachine) {
  for (const wchar_t* path : {L"C:\\hudba\\Moje rádia.m3u", L"C:\\hudba\\a.PLS", L"D:\\píseň.mp3"}) {
    file(path);
    drop({path});
    EXPECT_EQ(w.player.url(), path);
    EXPECT_EQ(w.player.origin(), AddressOrigin::dropped);
    EXPECT_TRUE(w.player.playing());
  }
  EXPECT_EQ(w.session.station_name, L"píseň");
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
}

TEST_F(DropsTest, AnAddressPlaysAsAStations) {
  drop_text(L"http://radio.example:8000/a\r\nMoje rádio");
  EXPECT_EQ(w.player.url(), L"http://radio.example:8000/a");
  EXPECT_EQ(w.player.origin(), AddressOrigin::station);
  EXPECT_EQ(w.session.station_name, L"radio.example");
  EXPECT_TRUE(w.player.playing());
}

TEST_F(DropsTest, AShortcutPlaysTheAddressInIt) {
  file(L"C:\\plocha\\Rádio.url", "[InternetShortcut]\r\nURL=https://radio.example/b\r\n");
  drop({L"C:\\plocha\\Rádio.url"});
  EXPECT_EQ(w.player.url(), L"https://radio.example/b");
  EXPECT_EQ(w.player.origin(), AddressOrigin::station);
}

TEST_F(DropsTest, AShortcutThatIsTooLongOrLeadsElsewhereIsRefused) {
  file(L"C:\\a.url", "[InternetShortcut]\r\nURL=file:///C:/tajne.mp3\r\n");
  file(L"C:\\b.url", "[InternetShortcut]\r\nURL=http://a.cz\r\n" + std::string(player::Drops::max_shortcut_bytes, ' '));
  drop({L"C:\\a.url", L"C:\\b.url"});
  EXPECT_TRUE(refused());
}

TEST_F(DropsTest, OfSeveralFilesTheFirstThatCanBePlayedIs) {
  file(L"C:\\b.m3u");
  file(L"C:\\c.m3u");
  drop({L"\\\\host\\share\\a.m3u", L"C:\\slozka", L"C:\\b.m3u", L"C:\\c.m3u"});
  EXPECT_EQ(w.player.url(), L"C:\\b.m3u");
}

TEST_F(DropsTest, NothingOfAnotherMachineIsEvenLookedFor) {
  file(L"\\\\host\\share\\a.m3u");
  file(L"\\\\?\\C:\\a.m3u");
  drop({L"\\\\host\\share\\a.m3u", L"\\\\?\\C:\\a.m3u", L"//host/share/a.m3u"});
  EXPECT_TRUE(refused());
}

TEST_F(DropsTest, WhatCannotBePlayedIsTold) {
  drop_text(L"Moje rádio");
  EXPECT_TRUE(refused());
  w.dialogs.shown.clear();
  w.playback.Play();
  w.form.InfoStatus.resize(1000, 300);
  drop_text(L"C:\\a.mp3");
  EXPECT_TRUE(w.dialogs.shown.empty()) << "in the status line, where that is seen";
  EXPECT_EQ(w.form.InfoStatus.text(), player::drop_refused);
  EXPECT_TRUE(w.player.playing()) << "what plays plays on";
}

TEST_F(DropsTest, AListDroppedOnTheFavouritesIsImportedAndElsewherePlays) {
  file(L"C:\\a.m3u", "http://nikde\r\n");
  file(L"C:\\a.pls");
  drops.dropped({{L"C:\\a.m3u"}, L"", &w.form.Control_List});
  EXPECT_FALSE(w.player.playing());
  EXPECT_TRUE(w.did(L"ZobrazOblibene"));
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  drops.dropped({{L"C:\\a.m3u"}, L"", &w.form.Control_Play});
  EXPECT_EQ(w.player.url(), L"C:\\a.m3u");
  drops.dropped({{L"C:\\a.pls"}, L"", &w.form.Control_List});
  EXPECT_EQ(w.player.url(), L"C:\\a.pls") << "it is no list of ours";
}

TEST_F(DropsTest, ALongNameIsCut) {
  const std::wstring path = L"C:\\" + std::wstring(200, L'a') + L".m3u";
  file(path);
  drop({path});
  EXPECT_EQ(w.session.station_name, std::wstring(100, L'a'));
}

} // namespace
} // namespace lumotune::test
