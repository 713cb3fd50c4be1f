// SPDX-License-Identifier: LGPL-2.1-or-later
// What a start finds: another copy of the program, the client or none, files that are torn, missing or read-only.
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::ShowWindow;
using platform::WindowRef;

struct StartupSurroundings : testing::Test {
  PlayerWorld w;
};

TEST_F(StartupSurroundings, ASecondInstanceShowsTheFirstAndEnds) {
  w.machine.previous = true;
  w.machine.arguments = L"http://neco";
  w.messages.add_window(L"Lumotune", WindowRef{3});
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(w.window.caption(), L"Lumotune...");
  EXPECT_EQ(w.messages.foreground_given, std::vector<WindowRef>{WindowRef{3}});
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].bytes, "fmax");
  EXPECT_TRUE(w.loop.quitting());
  EXPECT_TRUE(w.player.calls.empty());
  EXPECT_TRUE(w.journal.empty());
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_FALSE(w.messages.hooked());
}

TEST_F(StartupSurroundings, WithoutALoginTheClientIsStartedAndTheProgramEnds) {
  w.set_option(5, "#005:AAAAA:");
  EXPECT_FALSE(w.startup.Form_Load());
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, L"Nejprve zapněte Orb klienta.");
  EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_NE(w.dialogs.shown[0].title, L"Lumotune");
  ASSERT_EQ(w.shell.started.size(), 1U);
  EXPECT_EQ(w.shell.started[0].command_line, L"orb.exe");
  EXPECT_EQ(w.shell.started[0].application, L"");
  EXPECT_EQ(w.shell.started[0].show, ShowWindow::normal_focus);
  EXPECT_TRUE(w.loop.quitting());
  EXPECT_FALSE(w.did(L"LoadSkin Lumo"));
}

TEST_F(StartupSurroundings, ASecondStartBringsTheBoxForwardAndNoEmptyWindow) {
  w.set_option(5, "#005:AAAAA:");
  w.dialogs.while_open = [&] { EXPECT_EQ(w.command("fmax"), -1); };
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(w.dialogs.brought_forward, 1);
  EXPECT_FALSE(w.did(L"FormMax"));
  EXPECT_FALSE(w.window.visible());
}

TEST_F(StartupSurroundings, AMissingSettingsFileCountsAsNoLogin) {
  (void)w.files.remove(w.path(L"Orb_Data\\options.ini"));
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_FALSE(w.files.exists(w.path(L"Orb_Data\\options.ini")));
}

TEST_F(StartupSurroundings, AMissingClientIsStartedWithItsFullPath) {
  w.messages.remove_window(L"Orb - Lumotune");
  w.machine.folder = L"C:\\Moje programy\\Orb";
  w.put(L"Orb_Data\\options.ini", joined(option_lines()));
  EXPECT_TRUE(w.startup.Form_Load());
  ASSERT_EQ(w.shell.started.size(), 1U);
  EXPECT_EQ(w.shell.started[0].command_line, L"C:\\Moje programy\\Orb\\orb.exe m");
  EXPECT_EQ(w.shell.started[0].application, L"C:\\Moje programy\\Orb\\orb.exe");
  EXPECT_EQ(w.shell.started[0].show, ShowWindow::normal_no_focus);
  EXPECT_TRUE(w.session.ClientStartedByUs);
}

TEST_F(StartupSurroundings, ARunningClientIsLeftAlone) {
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_FALSE(w.session.ClientStartedByUs);
}

TEST_F(StartupSurroundings, TheSecondCopyRenamesItselfAndGivesTheForegroundFirst) {
  w.machine.previous = true;
  w.messages.add_window(L"Lumotune", WindowRef{3});
  std::vector<std::size_t> given;
  const auto before_the_command = w.loop.make_waker([&] {
    EXPECT_TRUE(w.messages.sent.empty());
    given.push_back(w.messages.foreground_given.size());
  });
  w.messages.on_look_up = [&](const std::wstring&) {
    EXPECT_EQ(w.window.caption(), L"Lumotune...") << "no look-up may find this copy";
    before_the_command->wake();
  };
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(given, std::vector<std::size_t>{1});
  EXPECT_EQ(w.messages.sent.size(), 1U);
}

TEST_F(StartupSurroundings, AWindowThatMerelyBearsTheCaptionIsNotTakenForTheFirstCopy) {
  w.machine.previous = true;
  w.messages.add_window(L"Lumotune", WindowRef{3}); // a folder of that name, say
  w.messages.add_copy(L"Lumotune", WindowRef{4});
  EXPECT_FALSE(w.startup.Form_Load());
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].target, WindowRef{4});
  EXPECT_EQ(w.messages.foreground_given, std::vector<WindowRef>{WindowRef{4}});
}

TEST_F(StartupSurroundings, ASecondCopyWhoseFirstIsJustGoneStartsNothing) {
  w.machine.previous = true;
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_TRUE(w.loop.quitting());
}

TEST_F(StartupSurroundings, AReadOnlyFolderIsToldOnceWhenAllIsUpAndTheStationPlays) {
  w.set_option(13, "#013:LTautoStart:1");
  w.files.make_folder_readonly(w.machine.folder);
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.dialogs.shown.empty()) << "the start does not wait for a box";
  EXPECT_TRUE(w.window.visible());
  EXPECT_TRUE(w.called(L"play"));
  w.loop.advance(60000);
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, L"Tyto soubory nelze zapsat, změny v nich se neuloží:\r\n"
                                     L"C:\\Orb\\Orb_Data\\options.ini\r\nC:\\Orb\\list.tt");
  w.shutdown.Konec();
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined([] {
              auto lines = option_lines();
              lines[13] = "#013:LTautoStart:1";
              return lines;
            }()));
}

TEST_F(StartupSurroundings, AReadOnlySettingsFileIsNamedAlone) {
  w.files.make_readonly(w.path(L"Orb_Data\\options.ini"));
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.advance(10);
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.dialogs.shown[0].text.ends_with(L":\r\nC:\\Orb\\Orb_Data\\options.ini"));
}

TEST_F(StartupSurroundings, ASettingsFileThatIsLockedIsNoMissingLogin) {
  w.files.make_unreadable(w.path(L"Orb_Data\\options.ini"));
  EXPECT_FALSE(w.startup.Form_Load());
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text,
            L"Soubor options.ini nelze přečíst, používá ho jiný program.\r\nZkuste to prosím později.");
  EXPECT_TRUE(w.shell.started.empty()) << "the client is not asked for";
  EXPECT_TRUE(w.loop.quitting());
}

TEST_F(StartupSurroundings, ASettingsFileThatIsLockedForAMomentIsWaitedFor) {
  w.files.make_unreadable(w.path(L"Orb_Data\\options.ini"));
  w.loop.at(1500, [&] { w.files.mend(w.path(L"Orb_Data\\options.ini")); });
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(StartupSurroundings, SettingsThatCouldNotBeSavedAreToldAtTheNextStartOnce) {
  const std::wstring options = w.path(L"Orb_Data\\options.ini");
  ASSERT_TRUE(w.startup.Form_Load());
  w.files.hold(options);
  w.shutdown.Konec();
  EXPECT_TRUE(w.dialogs.shown.empty()) << "the end does not wait for a box";
  for (const std::size_t told : {1U, 0U}) {
    PlayerWorld next;
    next.files.start_with_disk_of(w.files);
    ASSERT_TRUE(next.startup.Form_Load());
    next.loop.advance(10);
    ASSERT_EQ(next.dialogs.shown.size(), told);
    if (told != 0) {
      EXPECT_EQ(next.dialogs.shown[0].text,
                L"Nastavení se minule nepodařilo uložit.\r\nSoubor options.ini používal jiný program, "
                L"nebo byl plný disk.");
    }
    next.shutdown.Konec();
    w.files.start_with_disk_of(next.files);
  }
}

TEST_F(StartupSurroundings, AFullDiskIsNamed) {
  w.files.room = 1000;
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.advance(60000);
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, L"Disk C: je plný, změny se neuloží.");
}

TEST_F(StartupSurroundings, WhatCanBeSavedIsNoNews) {
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.advance(10);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(StartupSurroundings, WhatACrashLeftIsPutInOrderBeforeTheSettingsAreRead) {
  const std::string whole = w.get(L"Orb_Data\\options.ini");
  w.put(L"Orb_Data\\options.ini.new", whole.substr(0, whole.size() / 2));
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_FALSE(w.files.exists(w.path(L"Orb_Data\\options.ini.new")));
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), whole);
}

TEST_F(StartupSurroundings, ASecondCopyLeavesTheFilesOfTheFirstAlone) {
  w.put(L"Orb_Data\\options.ini.new", "the first copy is writing this");
  w.machine.previous = true;
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_TRUE(w.files.exists(w.path(L"Orb_Data\\options.ini.new")));
}

TEST_F(StartupSurroundings, AStartInTheMiddleOfTheClientsWritingFindsTheLogin) {
  const auto lines = option_lines();
  w.put(L"Orb_Data\\options.ini", joined({lines.begin(), lines.begin() + 3}));
  w.loop.at(400, [&] { w.put(L"Orb_Data\\options.ini", joined(lines)); });
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_EQ(w.settings.idh, L"idhhodnota");
}

} // namespace
} // namespace lumotune::test
