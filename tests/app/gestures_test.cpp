// SPDX-License-Identifier: LGPL-2.1-or-later
// What is dropped, the wheel, the middle button and keys, from the window to what they do.
#include "tests/app/program_world.h"
#include "tests/support/zip_file.h"

namespace lumotune::test {
namespace {

struct GesturesTest : ProgramWorld {
  platform::memory::ListBox& list = *window.list(L"Control_List");

  GesturesTest() {
    put(L"radios.tt", PlayerWorld::record("RADIO1", "Prvn\xed", "u1a", "u2a") +
                          PlayerWorld::record("radio2", "Druh\xe9", "u1b", "u2b"));
  }
  void start_with(const std::string& favourites) {
    put(L"list.tt", favourites);
    ASSERT_TRUE(program.start());
  }
};

TEST_F(GesturesTest, WhatIsDroppedPlays) {
  start_with("");
  (void)files.replace(L"C:\\moje.m3u", "http://a");
  ASSERT_TRUE(window.user_drop({{L"C:\\moje.m3u"}, L"", nullptr}, L""));
  EXPECT_EQ(player.url(), L"C:\\moje.m3u");
  EXPECT_EQ(player.calls.back(), L"play");
  loop.advance(1000);
  EXPECT_EQ(window.label(L"InfoName")->text(), L"moje");
}

TEST_F(GesturesTest, WheelMiddleButtonAndKeys) {
  start_with("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(window.user_wheel(2));
  EXPECT_EQ(player.volume(), 50);
  ASSERT_TRUE(window.user_middle_click());
  EXPECT_EQ(player.calls.back(), L"play");
  ASSERT_TRUE(window.user_middle_click());
  EXPECT_EQ(player.calls.back(), L"stop");
  ASSERT_TRUE(list.user_pick(1));
  EXPECT_FALSE(window.user_key(platform::WindowKey::up)) << "the list's own";
  EXPECT_EQ(list.selected(), 0U);
  ASSERT_TRUE(window.user_key(platform::WindowKey::space));
  EXPECT_EQ(player.url(), L"u1a");
  EXPECT_EQ(player.calls.back(), L"play");
  ASSERT_TRUE(window.user_key(platform::WindowKey::down)) << "the list is hidden while it plays";
  EXPECT_EQ(player.volume(), 45);
  put(L"prirucka.html", "<html>");
  ASSERT_TRUE(window.user_key(platform::WindowKey::f1));
  EXPECT_EQ(shell.opened.size(), 1U);
  platform::StreamStatus status;
  status.phase = platform::StreamPhase::playing;
  status.title = L"Kometa";
  player.reported = status;
  ASSERT_TRUE(window.user_key(platform::WindowKey::ctrl_c));
  EXPECT_EQ(clipboard.text, L"Kometa");
}

TEST_F(GesturesTest, F5LoadsTheSkinAnew) {
  start_with("");
  const std::string skin = get(L"Orb_Data\\skins\\Lumo.skin");
  ASSERT_FALSE(skin.empty());
  const int left = window.label(L"InfoName")->rect().left;
  put(L"Orb_Data\\skins\\Lumo.skin", skin + "InfoName|1|" + std::to_string(left + 300) + "|3|4|5\r\n");
  ASSERT_TRUE(window.user_key(platform::WindowKey::f5));
  EXPECT_EQ(window.label(L"InfoName")->rect().left, left + 300);
}

TEST_F(GesturesTest, ASkinDroppedAsAnArchiveIsWorn) {
  start_with("");
  std::vector<ZipFile> packed = {{"Noc/Noc.skin", get(L"Orb_Data\\skins\\Lumo.skin")}};
  for (const std::wstring& file : files.list(folder.skins(L"Lumo"), L"*.gif"))
    packed.push_back(
        {"Noc/Noc/" + std::string(file.begin(), file.end()), files.read(folder.skins(L"Lumo\\" + file)).value_or("")});
  (void)files.replace(L"C:\\noc.zip", zip_of(packed));
  ASSERT_TRUE(window.user_drop({{L"C:\\noc.zip"}, L"", nullptr}, L""));
  EXPECT_EQ(program.settings.LTskin, L"Noc");
  EXPECT_EQ(program.settings.saved_skin, L"Noc");
  EXPECT_EQ(get(L"Orb_Data\\skins\\Noc.skin"), get(L"Orb_Data\\skins\\Lumo.skin"));
  EXPECT_NE(player.url(), L"C:\\noc.zip");
}

TEST_F(GesturesTest, AListDroppedOnTheFavouritesIsImported) {
  put(L"radios.tt", PlayerWorld::record("RADIO1", "Prvn\xed", "http://a/1", "http://a/2"));
  start_with("lt:RADIO1/1\r\n");
  (void)files.replace(L"C:\\moje.m3u", "http://a/2");
  ASSERT_TRUE(window.user_drop({{L"C:\\moje.m3u"}, L"", nullptr}, L"Control_List"));
  EXPECT_EQ(get(L"list.tt"), "lt:RADIO1/1\r\nlt:RADIO1/2\r\n");
  EXPECT_EQ(list.count(), 2U);
  EXPECT_NE(player.url(), L"C:\\moje.m3u");
  ASSERT_TRUE(window.user_key(platform::WindowKey::ctrl_e));
  EXPECT_NE(get(L"oblibene.m3u").find("http://a/2"), std::string::npos);
}

} // namespace
} // namespace lumotune::test
