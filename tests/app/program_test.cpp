// SPDX-License-Identifier: LGPL-2.1-or-later
// The whole program, wired, on the backend in memory: from outside, by clicks, commands and files.
#include "tests/app/program_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;
using platform::WindowState;

struct ProgramTest : ProgramWorld {};

TEST_F(ProgramTest, StartsInItsSkinAndPlaysAndStops) {
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(window.visible());
  EXPECT_EQ(window.caption(), L"Lumotune");
  EXPECT_EQ(window.rect(), (platform::TwipsRect{3000, 4500, 6000, 3000}));
  EXPECT_TRUE(tray.added);
  EXPECT_EQ(picture(L"Control_Volume"), L"vol2.gif");
  EXPECT_EQ(picture(L"Control_Play"), L"play.gif");
  EXPECT_TRUE(form.InfoNaladit.visible()) << "nothing plays and the list is empty";
  EXPECT_FALSE(form.Control_List.visible()) << "the empty list is hidden when the hint shows";
  EXPECT_TRUE(form.LTDisplay.visible()) << "showifnulllist";

  ASSERT_TRUE(window.picture(L"Control_Play")->user_click());
  EXPECT_EQ(player.url(), L"u2a");
  EXPECT_EQ(player.calls.back(), L"play");
  EXPECT_EQ(picture(L"Control_Play"), L"stop.gif");
  EXPECT_FALSE(form.InfoNaladit.visible());
  EXPECT_FALSE(form.Orbwww.visible());
  loop.advance(1000);
  EXPECT_EQ(form.InfoName.text(), L"První");
  EXPECT_EQ(tray.tip, L"První - Lumotune");
  EXPECT_EQ(window.caption(), L"Lumotune");

  ASSERT_TRUE(window.picture(L"Control_Play")->user_click());
  EXPECT_EQ(player.calls.back(), L"stop");
  EXPECT_EQ(picture(L"Control_Play"), L"play.gif");
  EXPECT_TRUE(form.InfoNaladit.visible());
}

TEST_F(ProgramTest, ThePlayersNotificationsReachTheStatus) {
  ASSERT_TRUE(program.start());
  player.reported.emplace().phase = platform::StreamPhase::connecting;
  player.on_play_state_change(1);
  EXPECT_EQ(form.InfoStatus.text(), L"Připojování...");
  player.reported.emplace().phase = platform::StreamPhase::playing;
  player.on_status_change();
  EXPECT_EQ(form.InfoStatus.tooltip(), L"Přehrávání");
}

TEST_F(ProgramTest, AQualityThatIsGoneIsReplaced) {
  ASSERT_TRUE(program.start());
  ASSERT_TRUE(window.picture(L"Control_Play")->user_click());
  platform::StreamStatus gone;
  gone.phase = platform::StreamPhase::waiting;
  gone.trouble = platform::StreamTrouble::lost;
  player.reported = gone;
  loop.advance(21000);
  EXPECT_EQ(player.url(), L"u1a");
  program.shutdown.Konec();
  EXPECT_NE(get(L"Orb_Data\\options.ini").find("LTLast:RADIO1/2"), std::string::npos);
}

TEST_F(ProgramTest, TheFramesPicturesAndTheTrayWork) {
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(window.picture(L"LineMenu_OnTop")->user_click());
  EXPECT_TRUE(window.topmost());
  EXPECT_EQ(picture(L"LineMenu_OnTop"), L"ot.gif");
  EXPECT_TRUE(window.picture(L"LineMenu_OnTop")->user_click());
  EXPECT_FALSE(window.topmost());
  EXPECT_TRUE(window.picture(L"LineMenu_Min")->user_click());
  EXPECT_FALSE(window.visible());
  EXPECT_TRUE(tray.added);
  tray_event(513);
  EXPECT_TRUE(window.visible());
  EXPECT_EQ(window.state(), WindowState::normal);
  window.on_mouse_move({MouseButton::left, 1, 1});
  EXPECT_EQ(window.dragged, 1);
  EXPECT_TRUE(window.label(L"InfoNaladit")->user_mouse_move({MouseButton::none, 1, 1}));
  EXPECT_TRUE(form.InfoNaladit.underline());
  EXPECT_TRUE(window.picture(L"LTDisplay")->user_mouse_move({MouseButton::none, 1, 1}));
  EXPECT_FALSE(form.InfoNaladit.underline());
}

TEST_F(ProgramTest, ASecondCopysCommandShowsTheHiddenWindow) {
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(window.picture(L"LineMenu_Min")->user_click());
  EXPECT_EQ(messages.deliver("fmax"), -1);
  loop.run_pending();
  EXPECT_TRUE(window.visible());
}

TEST_F(ProgramTest, AnAddressOfTheClientsDoesNotUnhideTheWindow) {
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(window.picture(L"LineMenu_Min")->user_click());
  EXPECT_EQ(messages.deliver("p:http://adresa"), -1);
  loop.run_pending();
  EXPECT_EQ(player.url(), L"http://adresa");
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(program.session.window_shown, L"0");
}

TEST_F(ProgramTest, TheClosePictureSavesAndEnds) {
  ASSERT_TRUE(program.start());
  window.move(150, 300);
  EXPECT_TRUE(window.picture(L"LineMenu_End")->user_click());
  EXPECT_TRUE(loop.quitting());
  EXPECT_FALSE(tray.added);
  EXPECT_NE(get(L"Orb_Data\\options.ini").find("#022:LTpleft:150\r\n#023:LTptop:300\r\n"), std::string::npos);
}

TEST_F(ProgramTest, TheSystemsCloseAndTheEndOfTheSessionEndItOnce) {
  ASSERT_TRUE(program.start());
  window.on_session_end();
  EXPECT_TRUE(loop.quitting());
  const auto changes = files.changes().size();
  window.on_close();
  EXPECT_EQ(files.changes().size(), changes);
}

TEST_F(ProgramTest, SuspendAndResumeReachThePlayer) {
  ASSERT_TRUE(program.start());
  window.on_suspend();
  window.on_resume();
  EXPECT_EQ(player.calls.back(), L"resumed");
  EXPECT_EQ(player.calls[player.calls.size() - 2], L"suspended");
}

TEST_F(ProgramTest, WithoutALoginNothingIsShown) {
  auto lines = option_lines();
  lines[5] = "#005:AAAAA:";
  put(L"Orb_Data\\options.ini", joined(lines));
  EXPECT_FALSE(program.start());
  EXPECT_FALSE(window.visible());
  EXPECT_FALSE(tray.added);
  EXPECT_TRUE(loop.quitting());
}

TEST_F(ProgramTest, ABrokenSkinStillLeavesAProgramThatPlaysAndEnds) {
  (void)files.remove(machine.folder + L"\\Orb_Data\\skins\\Lumo\\form.gif");
  ASSERT_TRUE(program.start());
  EXPECT_NE(get(L"Orb_Data\\error.log").find("form.gif"), std::string::npos);
  EXPECT_EQ(messages.deliver("play"), -1);
  loop.run_pending();
  EXPECT_EQ(player.calls.back(), L"play");
  tray_event(513);
  EXPECT_FALSE(window.visible());
  program.shutdown.Konec();
  EXPECT_TRUE(loop.quitting());
}

TEST_F(ProgramTest, TheControlsReachTheirPorts) {
  ASSERT_TRUE(program.start());
  form.Control_Sat.set_visible(true);
  for (const auto& tunes : {std::function<bool()>([&] { return window.picture(L"Control_Sat")->user_click(); }),
                            std::function<bool()>([&] { return window.label(L"InfoNaladit")->user_click(); })}) {
    EXPECT_TRUE(tunes());
    ASSERT_TRUE(program.directory.open());
    framed_windows.last->user_close();
  }
  EXPECT_TRUE(window.picture(L"Control_Volume")->user_click());
  EXPECT_EQ(popups.opened.back().anchor, &form.Control_Volume);
  EXPECT_TRUE(window.picture(L"Control_Play")->user_click());
  EXPECT_TRUE(window.label(L"InfoName")->user_click());
  EXPECT_EQ(popups.opened.back().anchor, &form.InfoName);
  EXPECT_TRUE(window.label(L"InfoName")->user_mouse_move({MouseButton::none, 1, 1}));
  EXPECT_TRUE(form.InfoName.underline());
}

TEST_F(ProgramTest, WhileStoppedOnlyTheHintIsSeen) {
  ASSERT_TRUE(program.start());
  const auto labels_hidden = [this] {
    return !form.InfoName.visible() && !form.InfoTime.visible() && !form.InfoStatus.visible();
  };
  EXPECT_TRUE(labels_hidden());
  window.picture(L"Control_Play")->user_click();
  EXPECT_TRUE(form.InfoName.visible() && form.InfoTime.visible() && form.InfoStatus.visible());
  window.picture(L"Control_Play")->user_click();
  EXPECT_TRUE(labels_hidden());
}

TEST_F(ProgramTest, IsInFrontAndNamedFromTheFirstMoment) {
  put(L"Orb_Data\\options.ini", [] {
    auto lines = option_lines();
    lines[13] = "#013:LTautoStart:1";
    return joined(lines);
  }());
  ASSERT_TRUE(program.start());
  EXPECT_EQ(window.activated, 1);
  EXPECT_EQ(tray.tip, L"První - Lumotune") << "not only after the first second";
}

TEST_F(ProgramTest, TheClientsListCommandShowsTheFavourites) {
  ASSERT_TRUE(program.start());
  form.InfoNaladit.set_visible(false);
  messages.deliver("list");
  loop.run_pending();
  EXPECT_TRUE(form.InfoNaladit.visible());
}

// The box lets events run: each way out of the program reaches it there.
TEST_F(ProgramTest, WhileTheClientIsAskedForNothingIsSavedWhateverEndsTheProgram) {
  auto lines = option_lines();
  lines[5] = "#005:AAAAA:";
  put(L"Orb_Data\\options.ini", joined(lines));
  int ways = 0;
  dialogs.while_open = [&] {
    const std::function<void()> ends[] = {window.on_session_end, window.on_close, [this] { program.shutdown.Konec(); }};
    for (const auto& end : ends) {
      end();
      ++ways;
    }
  };
  const auto changes = files.changes().size();
  EXPECT_FALSE(program.start());
  EXPECT_EQ(ways, 3);
  EXPECT_EQ(dialogs.shown.size(), 1U);
  EXPECT_TRUE(loop.quitting());
  EXPECT_EQ(files.changes().size(), changes);
  EXPECT_EQ(get(L"Orb_Data\\options.ini"), joined(lines));
}

TEST_F(ProgramTest, WithoutFoldersOfSkinsAndWithoutAWritableFolderItStartsAndPlaysAndEnds) {
  for (const std::wstring& name : files.list(machine.folder + L"\\Orb_Data\\skins\\Lumo", L"*"))
    (void)files.remove(machine.folder + L"\\Orb_Data\\skins\\Lumo\\" + name);
  (void)files.remove(machine.folder + L"\\Orb_Data\\skins\\Lumo.skin");
  files.make_folder_readonly(machine.folder);
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(window.visible());
  EXPECT_EQ(messages.deliver("play"), -1);
  loop.run_pending();
  EXPECT_EQ(player.calls.back(), L"play");
  program.menus.open_main();
  window.on_close();
  EXPECT_TRUE(loop.quitting());
  EXPECT_EQ(get(L"Orb_Data\\options.ini"), joined(option_lines()));
}

TEST_F(ProgramTest, TheBackgroundAndTheMenuKeyOpenTheMenu) {
  (void)files.remove(machine.folder + L"\\Orb_Data\\skins\\Lumo\\form.gif");
  ASSERT_TRUE(program.start());
  EXPECT_FALSE(form.Control_Menu.visible());
  EXPECT_TRUE(window.user_right_click());
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(popups.opened.back().items.front().name, L"LT_Menu_Orbcz");
  EXPECT_TRUE(window.user_menu_key());
  EXPECT_EQ(popups.opened.size(), 2U);
}

} // namespace
} // namespace lumotune::test
