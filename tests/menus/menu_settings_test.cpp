// SPDX-License-Identifier: LGPL-2.1-or-later
// Menu items that change what plays, how loud, a setting, the skin or the favourites.
#include "tests/menus/menu_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct MenuSettingsTest : testing::Test {
  MenuWorld w;
};

TEST_F(MenuSettingsTest, VolumeItemsSetTheVolume) {
  for (const auto& [item, percent] : {std::pair{L"Volume0", 0},
                                      {L"Volume1", 20},
                                      {L"Volume2", 40},
                                      {L"Volume3", 60},
                                      {L"Volume4", 80},
                                      {L"Volume5", 100}}) {
    w.use(item);
    EXPECT_EQ(w.player.volume(), percent);
    EXPECT_EQ(w.settings.LTvolume, std::to_wstring(percent));
    w.real_menus.open_volume();
    EXPECT_TRUE(w.shown(item).checked);
  }
  w.choose(L"Volume1");
  w.real_menus.open_tray();
  EXPECT_EQ(w.player.volume(), 20) << "chosen in the submenu of the tray's menu";
}

TEST_F(MenuSettingsTest, QualitiesPlayFirstAndAreKeptThen) {
  const std::vector<std::wstring> addresses = {L"u1a", L"u2a", L"u3", L"u4", L"u5"};
  for (int number = 1; number <= 5; ++number) {
    const std::wstring digit = std::to_wstring(number);
    w.settings.KvalitaLT = L"?";
    w.form.PlayTL.set_text(L"Zapnout");
    w.use(L"LT_MenuPlRaria_K_" + digit);
    EXPECT_EQ(w.player.url(), addresses[static_cast<std::size_t>(number) - 1]);
    EXPECT_EQ(w.player.origin(), platform::AddressOrigin::station);
    EXPECT_EQ(w.player.calls.back(), L"play");
    EXPECT_EQ(w.settings.KvalitaLT, digit);
    w.real_menus.open_station();
    EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_K_" + digit).checked);
  }
}

TEST_F(MenuSettingsTest, TheQualityIsSetAfterThePlayingBegan) {
  struct Noting final : player::SkinPort {
    explicit Noting(const base::Settings& settings_used) : settings(settings_used) {}
    void LoadSkin(const std::wstring& /*name*/) override {}
    void ZobrazCoMas(const std::wstring& /*play_button_text*/) override { quality = settings.KvalitaLT; }
    void SkinVolume(int /*percent*/) override {}
    void load_play_picture() override {}
    const base::Settings& settings;
    std::wstring quality;
  } look(w.settings);
  w.playback.skin.bind(look);
  w.use(L"LT_MenuPlRaria_K_4");
  EXPECT_EQ(look.quality, L"2");
  EXPECT_EQ(w.settings.KvalitaLT, L"4");
}

TEST_F(MenuSettingsTest, AlwaysOnTopTurns) {
  for (const auto& [before, after] :
       {std::pair{L"0", L"1"}, {L"1", L"0"}, {L"1.0", L"0"}, {L"11", L"1"}, {L"", L"1"}}) {
    w.settings.LTTop = before;
    w.use(L"LT_Menu_Nastaveni_OnTop");
    EXPECT_EQ(w.settings.LTTop, after);
    EXPECT_EQ(w.window.topmost(), w.settings.LTTop == L"1");
    w.real_menus.open_main();
    EXPECT_EQ(w.shown(L"LT_Menu_Nastaveni_OnTop").checked, w.settings.LTTop == L"1");
  }
}

TEST_F(MenuSettingsTest, AutoStartTurns) {
  for (const auto& [before, after] : {std::pair{L"0", L"1"}, {L"1", L"0"}, {L"", L"1"}, {L"1.0", L"1"}}) {
    w.settings.LTautoStart = before;
    w.use(L"LT_Menu_Nastaveni_AutoStart");
    EXPECT_EQ(w.settings.LTautoStart, after);
    w.real_menus.open_main();
    EXPECT_EQ(w.shown(L"LT_Menu_Nastaveni_AutoStart").checked, w.settings.LTautoStart == L"1");
  }
}

TEST_F(MenuSettingsTest, ASkinIsLoadedAndShownByTheStateOfTheProgram) {
  for (const wchar_t* picture : {L"form", L"play", L"stop", L"vol0", L"vol3", L"vol5"})
    w.put(L"Orb_Data\\skins\\Tmava\\" + std::wstring(picture) + L".gif", gif(20, 10));
  w.put(L"Orb_Data\\skins\\Tmava.skin", "LTform|7000|2000\r\nControl_Volume|show|0|0\r\nControl_Play|show|0|0\r\n"
                                        "InfoStatus|1|100|200|300|400|500|600\r\n");
  w.settings.LTvolume = L"60";
  w.playback.PlayAll(L"http://radio.example/a");
  w.player.played = 5000;
  w.status.tick();
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  ASSERT_EQ(w.form.Control_List.count(), 0U);
  w.use(L"LT_Menu_Skins_SKIN(1)");
  EXPECT_EQ(w.settings.LTskin, L"Tmava");
  EXPECT_EQ(w.window.rect().width, 7000);
  EXPECT_EQ(SkinWorld::file_name(w.form.Control_Play.picture()), L"stop.gif");
  EXPECT_EQ(SkinWorld::file_name(w.form.Control_Volume.picture()), L"vol3.gif");
  EXPECT_EQ(w.form.Control_List.count(), 1U) << "the favourites are shown anew";
  EXPECT_EQ(w.form.InfoStatus.rect().top, w.session.skin.status_top_2) << "the layout of a station that sounds";
  EXPECT_EQ(w.form.InfoStatus.rect().height, w.session.skin.status_height_2);
  EXPECT_NE(w.session.skin.status_top_1, w.session.skin.status_top_2);
}

TEST_F(MenuSettingsTest, NothingIsShownWhenTheProgramEndsDuringTheSkin) {
  w.put(L"Orb_Data\\skins\\Lumo.skin", "Nic|x\r\n");
  w.loop.at(0, [this] { w.loop.quit(); });
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  w.use(L"LT_Menu_Skins_SKIN(0)");
  EXPECT_EQ(w.form.Control_List.count(), 0U);
}

TEST_F(MenuSettingsTest, TheSelectedFavouriteIsRemoved) {
  const std::string kept = "lt:/\r\nlt:RADIO1/3\r\nlt:RADIO1/4\r\n";
  w.put(L"list.tt", kept);
  for (const wchar_t* none : {L"lt:/", L""}) {
    w.session.favourite_line = none;
    w.use(L"LT_MenuRadia_Delete");
    EXPECT_EQ(w.get(L"list.tt"), kept) << "no favourite was clicked yet";
  }
  w.session.favourite_line = L"lt:RADIO1/3";
  w.use(L"LT_MenuRadia_Delete");
  EXPECT_EQ(w.get(L"list.tt").find("lt:RADIO1/3"), std::string::npos);
  EXPECT_NE(w.get(L"list.tt").find("lt:RADIO1/4"), std::string::npos);
}

TEST_F(MenuSettingsTest, TheFavouritesTuneItemPressesThePlayButton) {
  w.use(L"LT_MenuRadia_Naladit");
  EXPECT_EQ(w.player.calls, std::vector<std::wstring>{L"play"});
}

} // namespace
} // namespace lumotune::test
