// SPDX-License-Identifier: LGPL-2.1-or-later
// Opening the menus: when, at which control, and how they are prepared.
#include "tests/menus/menu_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::MenuItem;

struct MenusTest : testing::Test {
  MenuWorld w;
  void station(const std::string& fields) { w.put(L"radios.tt", fields); }
  void tray_event(int message) {
    w.window.picture(L"TrayIcon")
        ->system_mouse_move({platform::MouseButton::none, static_cast<int>(message * w.window.twips_per_pixel), 0});
  }
};

TEST_F(MenusTest, EachMenuOpensAtItsControl) {
  w.real_menus.open_main();
  EXPECT_EQ(w.popups.opened.back().anchor, &w.form.Control_Menu);
  EXPECT_EQ(w.shown().front().name, L"LT_Menu_Orbcz");
  w.real_menus.open_volume();
  EXPECT_EQ(w.popups.opened.back().anchor, &w.form.Control_Volume);
  EXPECT_EQ(w.shown().front().name, L"Volume5");
  EXPECT_EQ(w.shown().size(), 6U);
  w.real_menus.open_station();
  EXPECT_EQ(w.popups.opened.back().anchor, &w.form.InfoName);
  EXPECT_EQ(w.shown().front().name, L"LT_MenuPlRaria_www");
  w.real_menus.open_favourite();
  EXPECT_EQ(w.popups.opened.back().anchor, &w.form.Control_List);
  EXPECT_EQ(w.shown().front().name, L"LT_MenuRadia_Naladit");
  tray_event(517);
  EXPECT_EQ(w.popups.opened.back().anchor, nullptr);
  EXPECT_EQ(w.shown().front().name, L"LT_TrayMenu_Play");
  EXPECT_EQ(w.popups.opened.size(), 5U);
}

TEST_F(MenusTest, ClosingWithoutAChoiceDoesNothing) {
  for (const auto& open : {&menus::Menus::open_main, &menus::Menus::open_volume, &menus::Menus::open_station,
                           &menus::Menus::open_favourite, &menus::Menus::open_tray})
    (w.real_menus.*open)();
  EXPECT_EQ(w.popups.opened.size(), 5U);
  EXPECT_TRUE(w.shell.started.empty() && w.shell.opened.empty() && w.dialogs.shown.empty() && w.player.calls.empty());
  EXPECT_EQ(w.journal, Journal{});
}

TEST_F(MenusTest, TheTrayMenuFollowsThePlayButtonAndShowsTheVolume) {
  w.form.PlayTL.set_text(L"Zapnout");
  w.form.PlayTL.set_enabled(false);
  tray_event(517);
  EXPECT_EQ(w.shown(L"LT_TrayMenu_Play").caption, L"Zapnout");
  EXPECT_FALSE(w.shown(L"LT_TrayMenu_Play").enabled);
  EXPECT_TRUE(w.shown(L"LT_Volume").visible);
  w.playback.PlayAll(L"http://radio.example/a");
  tray_event(517);
  EXPECT_EQ(w.shown(L"LT_TrayMenu_Play").caption, L"Stop");
  EXPECT_TRUE(w.shown(L"LT_TrayMenu_Play").enabled);
}

TEST_F(MenusTest, TheStationMenuShowsItsAddressAndQualities) {
  station("RADIO1/@/Prvni/@/t/@/x/@/z/@/100001/@/a1/@/a2/@/a3/@/a4/@/a5/@/64/@//@/192/@//@/320/@/www.a&b.example\r\n");
  w.settings.KvalitaLT = L"3";
  w.settings.IDlastRadio = L"radio1";
  w.real_menus.open_station();
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_www").caption, L"www.a&b.example");
  EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_www").enabled);
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_K_1").caption, L"64 kbps");
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_K_3").caption, L"192 kbps");
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_K_5").caption, L"320 kbps");
  for (const auto& [name, visible, checked] :
       {std::tuple{L"LT_MenuPlRaria_K_1", true, false}, std::tuple{L"LT_MenuPlRaria_K_2", false, false},
        std::tuple{L"LT_MenuPlRaria_K_3", true, true}, std::tuple{L"LT_MenuPlRaria_K_4", false, false},
        std::tuple{L"LT_MenuPlRaria_K_5", true, false}}) {
    EXPECT_EQ(w.shown(name).visible, visible) << testing::PrintToString(std::wstring(name));
    EXPECT_EQ(w.shown(name).checked, checked) << testing::PrintToString(std::wstring(name));
  }
}

TEST_F(MenusTest, AnUnknownStationHasNoQualityAndNoAddress) {
  w.real_menus.open_station();
  EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_www").enabled);
  w.settings.IDlastRadio = L"NENI00";
  w.real_menus.open_station();
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_www").caption, L"Web rádia");
  EXPECT_FALSE(w.shown(L"LT_MenuPlRaria_www").enabled);
  for (const wchar_t digit : {L'1', L'2', L'3', L'4', L'5'})
    EXPECT_FALSE(w.shown(std::wstring(L"LT_MenuPlRaria_K_") + digit).visible);
}

TEST_F(MenusTest, AStationWhoseAddressIsBlankHasNoPageToOpen) {
  std::string line = "BLANK1";
  for (int field = 2; field <= 16; ++field)
    line += "/@/";
  w.put(L"radios.tt", line + "/@/  \t\r\n");
  w.settings.IDlastRadio = L"BLANK1";
  w.real_menus.open_station();
  EXPECT_EQ(w.shown(L"LT_MenuPlRaria_www").caption, L"Web rádia");
  EXPECT_FALSE(w.shown(L"LT_MenuPlRaria_www").enabled);
}

TEST_F(MenusTest, TheQualityChosenLastIsTheOnlyOneChecked) {
  w.use(L"LT_MenuPlRaria_K_1");
  w.use(L"LT_MenuPlRaria_K_3");
  EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_K_1").checked) << "until the other one is chosen";
  w.real_menus.open_station();
  EXPECT_FALSE(w.shown(L"LT_MenuPlRaria_K_1").checked);
  EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_K_3").checked);
}

TEST_F(MenusTest, TheTuneItemOfTheFavouritesNamesTheStation) {
  w.put(L"list.tt", "lt:RADIO1/1\r\nlt:radio2/2\r\n");
  w.favourite_list.ZobrazOblibene();
  w.form.Control_List.select(1);
  w.real_menus.open_favourite();
  EXPECT_EQ(w.shown(L"LT_MenuRadia_Naladit").caption, L"Naladit rádio Druhé");
  w.form.Control_List.clear();
  w.real_menus.open_favourite();
  EXPECT_EQ(w.shown(L"LT_MenuRadia_Naladit").caption, L"Naladit rádio ");
}

TEST_F(MenusTest, SkinsAreListedAnewBeforeEachOpening) {
  w.put(L"Orb_Data\\skins\\Tmava.skin", "x");
  w.settings.LTskin = L"TMAVA";
  w.real_menus.open_main();
  EXPECT_EQ(w.shown(L"LT_Menu_Skins").children.size(), 2U);
  const MenuItem& first = w.shown(L"LT_Menu_Skins_SKIN(0)");
  const MenuItem& second = w.shown(L"LT_Menu_Skins_SKIN(1)");
  EXPECT_TRUE(first.enabled && first.caption == L"Lumo" && !first.checked);
  EXPECT_TRUE(second.enabled && second.caption == L"Tmava" && second.checked);
  (void)w.files.remove(w.path(L"Orb_Data\\skins\\Tmava.skin"));
  w.real_menus.open_main();
  EXPECT_EQ(w.shown(L"LT_Menu_Skins").children.size(), 1U);
  (void)w.files.remove(w.path(L"Orb_Data\\skins\\Lumo.skin"));
  w.real_menus.open_main();
  ASSERT_EQ(w.shown(L"LT_Menu_Skins").children.size(), 1U);
  EXPECT_EQ(w.shown(L"LT_Menu_Skins_SKIN").caption, L"...");
  EXPECT_FALSE(w.shown(L"LT_Menu_Skins_SKIN").enabled);
}

TEST_F(MenusTest, MarksFollowTheSettings) {
  w.settings.LTautoStart = L"1";
  w.settings.LTTop = L"1";
  w.real_menus.open_main();
  EXPECT_TRUE(w.shown(L"LT_Menu_Nastaveni_AutoStart").checked);
  EXPECT_TRUE(w.shown(L"LT_Menu_Nastaveni_OnTop").checked);
  w.settings.LTautoStart = L"0";
  w.settings.LTTop = L"0";
  w.real_menus.open_main();
  EXPECT_FALSE(w.shown(L"LT_Menu_Nastaveni_AutoStart").checked);
  EXPECT_FALSE(w.shown(L"LT_Menu_Nastaveni_OnTop").checked);
  for (const auto& [volume, level] : {std::pair{0, 0}, {1, 1}, {20, 1}, {21, 2}, {60, 3}, {80, 4}, {81, 5}, {100, 5}}) {
    w.playback.VolumeSet(volume);
    w.real_menus.open_volume();
    for (int each = 0; each <= 5; ++each)
      EXPECT_EQ(w.shown(L"Volume" + std::to_wstring(each)).checked, each == level) << volume;
  }
}

TEST_F(MenusTest, NoMenuOpensOverAnother) {
  int tries = 0;
  w.popups.while_open = [&] {
    ++tries;
    const auto before = w.popups.opened.size();
    w.real_menus.open_main();
    w.real_menus.open_station();
    w.real_menus.open_volume();
    w.real_menus.open_favourite();
    tray_event(517);
    w.real_menus.open_tray();
    EXPECT_EQ(w.popups.opened.size(), before);
  };
  w.real_menus.open_main();
  w.real_menus.open_station();
  EXPECT_EQ(tries, 2) << "the first one closed, the next one opens";
}

TEST_F(MenusTest, TheUserChoosesWhatWasShown) {
  w.put(L"Orb_Data\\skins\\Tmava.skin", "LTform|6000|3000\r\n");
  station("RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/www.a.example\r\n");
  w.popups.while_open = [this] {
    (void)w.files.remove(w.path(L"Orb_Data\\skins\\Lumo.skin"));
    station("RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/www.jine.example\r\n");
  };
  w.use(L"LT_Menu_Skins_SKIN(1)");
  EXPECT_EQ(w.settings.LTskin, L"Tmava");
  station("RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/www.a.example\r\n");
  w.use(L"LT_MenuPlRaria_www");
  EXPECT_EQ(w.shell.opened, std::vector<std::wstring>{L"\"www.a.example\""});
}

TEST_F(MenusTest, TheItemReadsTheValuesOfTheMomentItIsChosen) {
  w.popups.while_open = [this] { w.settings.IDlastRadio = L"RADIO2"; };
  w.use(L"LT_MenuRadia_Disk");
  EXPECT_NE(w.command_line().find(L"&tid=RADIO2/@/9000/@/9000/@/Diskuze k rádiové stanici: Druhé (Orb)"),
            std::wstring::npos);
}

TEST_F(MenusTest, NothingIsDoneWhenTheProgramEndsMeanwhile) {
  w.popups.while_open = [this] { w.loop.quit(); };
  w.use(L"Volume0");
  w.use(L"LT_Menu_Orbcz");
  EXPECT_TRUE(w.player.calls.empty());
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(MenusTest, AChoiceIsNothingOnceTheProgramEnds) {
  w.popups.after_choice = [this] { w.loop.quit(); };
  w.use(L"Volume0");
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(MenusTest, AMenuMayOpenWhileAnItemDoesItsWork) {
  w.no_server();
  w.dialogs.while_open = [this] { w.use(L"Volume2"); };
  w.use(L"LT_Menu_LTadd");
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.settings.LTvolume, L"40");
}

} // namespace
} // namespace lumotune::test
