// SPDX-License-Identifier: LGPL-2.1-or-later
// Who calls whom in the running program: every control and every item that leads from one room into another.
#include "tests/app/program_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;
using platform::ShowWindow;

struct WiringTest : ProgramWorld {
  platform::memory::ListBox& list = *window.list(L"Control_List");

  WiringTest() {
    put(L"Orb_Data\\orb_server.tt", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n123456789012345http://server.example\r\n");
    put(L"radios.tt", PlayerWorld::record("RADIO1", "Prvn\xed", "u1a", "u2a") +
                          PlayerWorld::record("radio2", "Druh\xe9", "u1b", "u2b"));
  }
  void start_with(const std::string& favourites) {
    put(L"list.tt", favourites);
    ASSERT_TRUE(program.start());
  }
  // A control that the skin leaves out, shown all the same.
  platform::memory::PictureBox& shown(const wchar_t* name) {
    auto* control = window.picture(name);
    control->set_visible(true);
    return *control;
  }
  void play() { ASSERT_TRUE(window.picture(L"Control_Play")->user_click()); }
  // The item is chosen in the menu that the user opens next.
  void choose(const wchar_t* item) { popups.choices = {item}; }
  [[nodiscard]] const platform::MenuItem& item(const wchar_t* name) const {
    static const platform::MenuItem none;
    const auto* found = popups.opened.empty() ? nullptr : platform::memory::find_item(popups.opened.back().items, name);
    return found == nullptr ? none : *found;
  }
  [[nodiscard]] const platform::Control* anchor() const {
    return popups.opened.empty() ? nullptr : popups.opened.back().anchor;
  }
  // Something led to the directory: its window is there. It is closed again.
  void expect_directory(const char* way) {
    ASSERT_TRUE(program.directory.open()) << way;
    EXPECT_TRUE(framed_windows.last->visible()) << way;
    framed_windows.last->user_close();
    loop.advance(200);
    EXPECT_FALSE(program.directory.open()) << way;
  }
  [[nodiscard]] std::wstring started() const {
    return shell.started.empty() ? std::wstring() : shell.started.back().command_line;
  }
  template <typename Kind>
  Kind& part(const wchar_t* name) {
    return *framed_windows.last->find<Kind>(name);
  }
};

TEST_F(WiringTest, TheMenuButtonOpensTheMainMenuWithTheSkins) {
  start_with("");
  ASSERT_TRUE(window.picture(L"Control_Menu")->user_click());
  EXPECT_EQ(anchor(), &form.Control_Menu);
  EXPECT_EQ(item(L"LT_Menu_Skins_SKIN(0)").caption, L"Lumo");
  EXPECT_TRUE(item(L"LT_Menu_Skins_SKIN(0)").checked);
}

TEST_F(WiringTest, TheVolumeButtonOpensTheVolumesOfWhichTheCurrentOneIsChecked) {
  start_with("");
  choose(L"Volume1");
  ASSERT_TRUE(window.picture(L"Control_Volume")->user_click());
  EXPECT_EQ(anchor(), &form.Control_Volume);
  EXPECT_TRUE(item(L"Volume2").checked) << "of the settings";
  EXPECT_EQ(player.volume(), 20);
  EXPECT_EQ(picture(L"Control_Volume"), L"vol1.gif");
  ASSERT_TRUE(window.picture(L"Control_Volume")->user_click());
  EXPECT_TRUE(item(L"Volume1").checked && !item(L"Volume2").checked);
}

TEST_F(WiringTest, TheStationsNameOpensItsMenu) {
  start_with("");
  play();
  choose(L"LT_MenuPlRaria_K_1");
  ASSERT_TRUE(window.label(L"InfoName")->user_click());
  EXPECT_EQ(anchor(), &form.InfoName);
  EXPECT_EQ(item(L"LT_MenuPlRaria_K_2").caption, L"128 kbps");
  EXPECT_TRUE(item(L"LT_MenuPlRaria_K_2").checked);
  EXPECT_EQ(player.url(), L"u1a");
  EXPECT_EQ(program.settings.KvalitaLT, L"1");
}

TEST_F(WiringTest, ARightClickOnTheTrayOpensItsMenu) {
  start_with("");
  choose(L"LT_TrayMenu_Play");
  tray_event(517);
  EXPECT_EQ(item(L"LT_TrayMenu_Play").caption, L"Zapnout");
  EXPECT_EQ(player.calls.back(), L"play");
  choose(L"LT_TrayMenu_Konec");
  tray_event(517);
  EXPECT_EQ(item(L"LT_TrayMenu_Play").caption, L"Stop");
  EXPECT_TRUE(loop.quitting());
  EXPECT_FALSE(tray.added);
}

TEST_F(WiringTest, MarksOfTheMainMenuFollowTheSettingsAndTheFrame) {
  auto lines = option_lines();
  lines[11] = "#011:LTTop:1";
  lines[13] = "#013:LTautoStart:1";
  put(L"Orb_Data\\options.ini", joined(lines));
  start_with("");
  window.picture(L"Control_Menu")->user_click();
  EXPECT_TRUE(item(L"LT_Menu_Nastaveni_AutoStart").checked);
  EXPECT_TRUE(item(L"LT_Menu_Nastaveni_OnTop").checked);
  window.picture(L"LineMenu_OnTop")->user_click();
  window.picture(L"Control_Menu")->user_click();
  EXPECT_FALSE(item(L"LT_Menu_Nastaveni_OnTop").checked);
}

TEST_F(WiringTest, ANewSkinShowsTheFavouritesAnew) {
  start_with("");
  form.InfoNaladit.set_visible(false);
  choose(L"LT_Menu_Skins_SKIN(0)");
  window.picture(L"Control_Menu")->user_click();
  EXPECT_TRUE(form.InfoNaladit.visible());
  EXPECT_FALSE(form.Control_List.visible()) << "it is empty";
}

TEST_F(WiringTest, TheConsoleIsReachedFromTheMenu) {
  start_with("");
  choose(L"LT_Menu_Nastaveni_LTCC");
  input_box.answers = {L"vol=85"};
  window.picture(L"Control_Menu")->user_click();
  EXPECT_EQ(input_box.asked.size(), 1U);
  EXPECT_EQ(program.settings.LTvolume, L"85");
}

TEST_F(WiringTest, EveryWayToTheDirectory) {
  start_with("");
  shown(L"Control_Sat").user_click();
  expect_directory("the button");
  window.label(L"InfoNaladit")->user_click();
  expect_directory("the hint");
  choose(L"LT_TrayMenu_RadioList");
  tray_event(517);
  expect_directory("the tray's menu");
  list.add(player::tune_hint);
  list.set_visible(true);
  ASSERT_TRUE(list.user_pick(list.count() - 1));
  expect_directory("the hint among the favourites");
  play();
  choose(L"LT_MenuPlRariaSat");
  window.label(L"InfoName")->user_click();
  expect_directory("the station's menu");
}

TEST_F(WiringTest, FavouritesAreListedTunedAndPlayed) {
  start_with("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_EQ(list.count(), 2U) << "from the first moment";
  EXPECT_TRUE(list.visible());
  ASSERT_TRUE(list.user_pick(1));
  EXPECT_EQ(program.settings.IDlastRadio, L"radio2");
  EXPECT_EQ(player.url(), L"u2b");
  EXPECT_TRUE(player.calls.empty() || player.calls.back() != L"play");
  ASSERT_TRUE(list.user_double_click());
  EXPECT_EQ(player.calls.back(), L"play");
  EXPECT_EQ(form.PlayTL.text(), L"Stop");
}

TEST_F(WiringTest, ARightClickOnAFavouriteOpensItsMenu) {
  start_with("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  pointer.on_click = [this] { loop.at(0, [this] { list.user_pick(1); }); };
  choose(L"LT_MenuRadia_Delete");
  ASSERT_TRUE(list.user_mouse_down({MouseButton::right, 30, 30}));
  EXPECT_EQ(pointer.clicks, 1);
  EXPECT_EQ(anchor(), &form.Control_List);
  EXPECT_EQ(item(L"LT_MenuRadia_Naladit").caption, L"Naladit rádio Druhé");
  EXPECT_EQ(get(L"list.tt"), "\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(list.count(), 1U);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Rádio bylo ostraněno z oblíbených.");
}

TEST_F(WiringTest, TheMenuKeyOpensTheMenuOfTheSelectedFavourite) {
  start_with("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(1));
  choose(L"LT_MenuRadia_Naladit");
  ASSERT_TRUE(list.user_menu_key());
  EXPECT_EQ(pointer.clicks, 0) << "the pointer may be anywhere";
  EXPECT_EQ(item(L"LT_MenuRadia_Naladit").caption, L"Naladit rádio Druhé");
  EXPECT_EQ(player.url(), L"u2b");
  EXPECT_EQ(player.calls.back(), L"play");
}

TEST_F(WiringTest, WithoutASelectedFavouriteTheMenuKeyOfTheListOpensTheMainMenu) {
  start_with("lt:RADIO1/1\r\n");
  ASSERT_EQ(list.selected(), platform::ListBox::none);
  window.activate();
  for (int i = 0; i < 30 && window.keyboard_at() != list.name(); ++i)
    window.user_tab(false);
  ASSERT_TRUE(list.user_menu_key());
  EXPECT_EQ(anchor(), &form.Control_Menu);
}

// After a skin that could not be loaded the list may be all that the keyboard reaches.
TEST_F(WiringTest, WithoutTheMenuButtonTheMenuKeyOfTheListOpensTheMainMenu) {
  start_with("lt:RADIO1/1\r\n");
  ASSERT_TRUE(list.user_pick(0));
  form.Control_Menu.set_visible(false);
  ASSERT_TRUE(list.user_menu_key());
  EXPECT_EQ(anchor(), &form.Control_Menu);
  EXPECT_EQ(item(L"LT_Menu_Skins_SKIN(0)").caption, L"Lumo");
}

TEST_F(WiringTest, RecorderListenersAndLogo) {
  start_with("");
  shell.started.clear();
  play();
  shown(L"Control_Rec").user_click();
  EXPECT_EQ(started(), L"C:\\Orb\\OrbRecorder.exe První");
  shown(L"Control_ShowUser").user_click();
  ASSERT_EQ(messages.sent.size(), 1U);
  EXPECT_EQ(messages.sent[0].bytes, "lts:RADIO1");
  shown(L"Orbwww").user_click();
  const std::wstring login = L"explorer http://server.example/login/idhhodnota/";
  EXPECT_EQ(started(), login + L"755--5544--9945--4544--9944--8544--9845--4544--9844--954-//1");
  EXPECT_EQ(shell.started.size(), 2U);
}

TEST_F(WiringTest, TheMediaKeysAreTakenWhenSomethingCanBePlayed) {
  put(L"radios.tt", "");
  start_with("");
  EXPECT_FALSE(media_keys.taken);
  (void)messages.deliver("p:http://klient");
  loop.run_pending();
  EXPECT_TRUE(media_keys.taken);
}

TEST_F(WiringTest, TheMediaKeysPressThePlayButton) {
  start_with("");
  ASSERT_TRUE(media_keys.taken);
  media_keys.on_play_pause();
  EXPECT_EQ(player.calls.back(), L"play");
  media_keys.on_stop();
  EXPECT_EQ(player.calls.back(), L"stop");
}

TEST_F(WiringTest, PlayingIsReportedAfterThreeSeconds) {
  start_with("");
  play();
  loop.advance(2900);
  EXPECT_TRUE(shell.started.empty());
  loop.advance(100);
  ASSERT_EQ(shell.started.size(), 2U);
  EXPECT_EQ(shell.started[0].command_line, L"C:\\Orb\\orb.exe m");
  EXPECT_EQ(shell.started[0].show, ShowWindow::normal_no_focus);
  EXPECT_EQ(shell.started[1].command_line,
            L"load.exe http://server.example/orb/lt_all.php?idh=idhhodnota&h=tajne&orbw=on&lt=on&stanice=RADIO1"
            L"/@/C:\\Orb\\orblt.tt");
}

TEST_F(WiringTest, TheDirectorysLinksOpenPages) {
  start_with("");
  shown(L"Control_Sat").user_click();
  ASSERT_TRUE(program.directory.open());
  auto& rows = part<platform::memory::ListView>(L"ListView1");
  ASSERT_EQ(rows.count(), 2U);
  shell.started.clear();
  part<platform::memory::PictureBox>(L"Image3").user_click();
  EXPECT_NE(started().find(L"explorer http://server.example/login/idhhodnota/755--"), std::wstring::npos);
  ASSERT_TRUE(rows.user_pick(1, MouseButton::left));
  part<platform::memory::Label>(L"Label4").user_click();
  EXPECT_EQ(shell.opened, std::vector<std::wstring>{L"\"www.example\""});
}

TEST_F(WiringTest, WhatTheDirectoryTunesAndAddsIsSeenInTheMainWindow) {
  start_with("");
  shown(L"Control_Sat").user_click();
  ASSERT_TRUE(program.directory.open());
  ASSERT_TRUE(part<platform::memory::ListView>(L"ListView1").user_pick(2, MouseButton::left));
  choose(L"Kvalita2play");
  part<platform::memory::Label>(L"Label7").user_click();
  EXPECT_EQ(player.url(), L"u2b");
  EXPECT_EQ(form.PlayTL.text(), L"Stop");
  choose(L"Kvalita2");
  part<platform::memory::Label>(L"Label5").user_click();
  EXPECT_EQ(get(L"list.tt"), "lt:radio2/2\r\n");
  EXPECT_EQ(list.count(), 1U);
}

TEST_F(WiringTest, NewCategoriesShowTheFavouritesAnew) {
  start_with("");
  shown(L"Control_Sat").user_click();
  ASSERT_TRUE(program.directory.open());
  put(L"list.tt", "lt:RADIO1/1\r\n");
  put(L"kategories_new.tt", "new//100000/@/Nov\xe1\r\n");
  loop.advance(500);
  EXPECT_EQ(list.count(), 1U);
}

} // namespace
} // namespace lumotune::test
