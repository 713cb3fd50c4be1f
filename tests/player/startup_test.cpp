// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::ShowWindow;
using platform::WindowRef;

struct StartupTest : testing::Test {
  PlayerWorld w;
};

// A skin whose load lets a command of the client's in, as the loop does between its lines.
struct SkinDuringWhichAClientSends final : player::SkinPort {
  SkinDuringWhichAClientSends(PlayerWorld& world, std::vector<std::string> texts)
      : w(world), commands(std::move(texts)) {}
  void LoadSkin(const std::wstring& /*name*/) override {
    for (const std::string& text : commands)
      EXPECT_EQ(w.command(text), -1) << text;
  }
  void ZobrazCoMas(const std::wstring& text) override { look = text; }
  void SkinVolume(int /*percent*/) override {}
  void load_play_picture() override {}
  PlayerWorld& w;
  std::vector<std::string> commands;
  std::wstring look;
};

TEST_F(StartupTest, DoesItsStepsInOrder) {
  w.set_option(13, "#013:LTautoStart:1");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.messages.hooked());
  EXPECT_EQ(w.player.calls[0], L"auto start off");
  EXPECT_EQ(w.journal, (Journal{L"LoadSkin Lumo", L"ZobrazCoMas Zapnout", L"SkinVolume 40", L"ZobrazOblibene",
                                L"play picture", L"ZobrazCoMas Stop", L"OnTopNO", L"Tray"}));
  EXPECT_EQ(w.player.url(), L"u2a");
  EXPECT_EQ(w.player.volume(), 40);
  EXPECT_EQ(w.window.rect().left, 3000);
  EXPECT_EQ(w.window.rect().top, 4500);
}

TEST_F(StartupTest, WithoutAutoStartTheLastStationIsTunedOnly) {
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.player.url(), L"u2a");
  EXPECT_FALSE(w.called(L"play"));
  EXPECT_TRUE(w.form.PlayTL.enabled());
}

TEST_F(StartupTest, AnUnknownLastStationIsNotTuned) {
  w.set_option(12, "#012:LTLast:NIKDE1/1");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_FALSE(w.form.PlayTL.enabled());
}

TEST_F(StartupTest, ASecondInstanceShowsTheFirstAndEnds) {
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

TEST_F(StartupTest, WithoutALoginTheClientIsStartedAndTheProgramEnds) {
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

TEST_F(StartupTest, ASecondStartBringsTheBoxForwardAndNoEmptyWindow) {
  w.set_option(5, "#005:AAAAA:");
  w.dialogs.while_open = [&] { EXPECT_EQ(w.command("fmax"), -1); };
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(w.dialogs.brought_forward, 1);
  EXPECT_FALSE(w.did(L"FormMax"));
  EXPECT_FALSE(w.window.visible());
}

TEST_F(StartupTest, ASecondStartWhileTheSkinLoadsShowsTheWindowAfterwards) {
  SkinDuringWhichAClientSends sending(w, {"fmax"});
  w.startup.skin.bind(sending);
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_FALSE(w.did(L"FormMax"));
  w.loop.run_pending();
  EXPECT_TRUE(w.did(L"FormMax"));
}

TEST_F(StartupTest, AMissingSettingsFileCountsAsNoLogin) {
  (void)w.files.remove(w.path(L"Orb_Data\\options.ini"));
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_FALSE(w.files.exists(w.path(L"Orb_Data\\options.ini")));
}

TEST_F(StartupTest, WhatTheSettingsTuneIsAStationsAddress) {
  for (const char* auto_start : {"#013:LTautoStart:1", "#013:LTautoStart:0"}) {
    PlayerWorld fresh;
    fresh.set_option(13, auto_start);
    fresh.player.set_url(L"", platform::AddressOrigin::listener);
    EXPECT_TRUE(fresh.startup.Form_Load());
    EXPECT_EQ(fresh.player.url(), L"u2a");
    EXPECT_EQ(fresh.player.origin(), platform::AddressOrigin::station);
  }
}

TEST_F(StartupTest, TheCommandLineReplacesTheAutoStart) {
  w.set_option(13, "#013:LTautoStart:1");
  w.machine.arguments = L"http://z prikazu";
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.player.url(), L"http://z prikazu");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::listener);
  EXPECT_EQ(std::count(w.player.calls.begin(), w.player.calls.end(), L"play"), 2);
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
}

TEST_F(StartupTest, AMissingClientIsStartedWithItsFullPath) {
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

TEST_F(StartupTest, ARunningClientIsLeftAlone) {
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_FALSE(w.session.ClientStartedByUs);
}

TEST_F(StartupTest, OnTopIsSetByTheValueOneAlone) {
  w.set_option(11, "#011:LTTop:1");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.did(L"OnTopYES"));
  PlayerWorld other;
  other.set_option(11, "#011:LTTop:1.0");
  EXPECT_TRUE(other.startup.Form_Load());
  EXPECT_TRUE(other.did(L"OnTopNO"));
}

TEST_F(StartupTest, ANamedSkinWithoutAFileGivesWayToTheDefault) {
  w.set_option(21, "#021:LTskin:Neni");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.did(L"LoadSkin Lumo"));
  EXPECT_FALSE(w.did(L"LoadSkin Neni"));
}

TEST_F(StartupTest, ABadEdgeLeavesThatEdge) {
  w.set_option(22, "#022:LTpleft:");
  const int left = w.window.rect().left;
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.window.rect().left, left);
  EXPECT_EQ(w.window.rect().top, 4500);
}

TEST_F(StartupTest, APlaceThatNoMonitorShowsIsNotTaken) {
  w.set_option(22, "#022:LTpleft:90000");
  const auto before = w.window.rect();
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.window.rect(), before);
}

TEST_F(StartupTest, APlaceOnASecondMonitorIsTaken) {
  w.window.monitors.push_back({1920 * 15, 0, 1920 * 15, 1080 * 15});
  w.set_option(22, "#022:LTpleft:40000");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.window.rect().left, 40000);
}

TEST_F(StartupTest, AVolumeThatIsNoNumberIsFifty) {
  w.set_option(20, "#020:LTvolume:nahlas");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.player.volume(), 50);
}

TEST_F(StartupTest, TheSecondCopyRenamesItselfAndGivesTheForegroundFirst) {
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

TEST_F(StartupTest, AWindowThatMerelyBearsTheCaptionIsNotTakenForTheFirstCopy) {
  w.machine.previous = true;
  w.messages.add_window(L"Lumotune", WindowRef{3}); // a folder of that name, say
  w.messages.add_copy(L"Lumotune", WindowRef{4});
  EXPECT_FALSE(w.startup.Form_Load());
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].target, WindowRef{4});
  EXPECT_EQ(w.messages.foreground_given, std::vector<WindowRef>{WindowRef{4}});
}

TEST_F(StartupTest, ASecondCopyWhoseFirstIsJustGoneStartsNothing) {
  w.machine.previous = true;
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_TRUE(w.loop.quitting());
}

TEST_F(StartupTest, AnEndDuringTheLoadEndsTheLoad) {
  struct EndingSkin final : player::SkinPort {
    explicit EndingSkin(PlayerWorld& world) : w(world) {}
    void LoadSkin(const std::wstring& /*name*/) override { w.shutdown.Konec(); }
    void ZobrazCoMas(const std::wstring& /*text*/) override {}
    void SkinVolume(int /*percent*/) override {}
    void load_play_picture() override {}
    PlayerWorld& w;
  } ending(w);
  w.startup.skin.bind(ending);
  w.set_option(13, "#013:LTautoStart:1");
  w.messages.remove_window(L"Orb - Lumotune");
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_FALSE(w.called(L"play"));
  EXPECT_FALSE(w.did(L"Tray")) << "an icon that nobody would remove";
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(StartupTest, WhatTheClientPlaysWhileTheSkinLoadsIsHeardAfterwards) {
  struct Case {
    std::vector<std::string> commands;
    std::wstring url;
  };
  const std::vector<Case> cases = {{{"p:http://klient"}, L"http://klient"},
                                   {{"remoteplay/@/NIKDE1/@/1/@/http://klient/@/Klient"}, L"http://klient"},
                                   {{"id:radio2", "idk:1", "play"}, L"u1b"}};
  for (const Case& each : cases) {
    for (const char* auto_start : {"1", "0"}) {
      PlayerWorld fresh;
      SkinDuringWhichAClientSends sending(fresh, each.commands);
      fresh.startup.skin.bind(sending);
      fresh.playback.skin.bind(sending);
      fresh.player.set_auto_start(false);
      fresh.set_option(13, std::string("#013:LTautoStart:") + auto_start);
      EXPECT_TRUE(fresh.startup.Form_Load());
      fresh.loop.run_pending();
      EXPECT_EQ(fresh.player.url(), each.url) << auto_start;
      EXPECT_TRUE(fresh.player.playing()) << each.commands[0] << " " << auto_start;
      EXPECT_EQ(fresh.form.PlayTL.text(), L"Stop");
      EXPECT_EQ(sending.look, L"Stop") << "the pictures fit the caption";
    }
  }
}

TEST_F(StartupTest, WhatTheClientPlaysDuringTheLoadReplacesTheCommandLine) {
  SkinDuringWhichAClientSends sending(w, {"p:http://klient"});
  w.startup.skin.bind(sending);
  w.machine.arguments = L"http://z prikazu";
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.run_pending();
  EXPECT_EQ(w.player.url(), L"http://klient");
  EXPECT_TRUE(w.player.playing());
}

TEST_F(StartupTest, TheAutoStartFlagIsTheTextOneAlone) {
  for (const char* off : {"", "2", "ano", "11"}) {
    PlayerWorld other;
    other.set_option(13, std::string("#013:LTautoStart:") + off);
    EXPECT_TRUE(other.startup.Form_Load());
    EXPECT_FALSE(other.called(L"play")) << off;
  }
}

TEST_F(StartupTest, ASavedVolumeIsClamped) {
  w.set_option(20, "#020:LTvolume:250");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.player.volume(), 100);
  EXPECT_EQ(w.settings.LTvolume, L"100");
}

TEST_F(StartupTest, AnEmptySkinNameGivesWayToTheDefault) {
  w.set_option(21, "#021:LTskin:");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.did(L"LoadSkin Lumo"));
}

TEST_F(StartupTest, WithoutAQualityTheFirstIsTuned) {
  w.set_option(12, "#012:LTLast:RADIO1/");
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_EQ(w.player.url(), L"u1a");
}

TEST_F(StartupTest, TheIconStandsBeforeTheCommandLinePlays) {
  w.machine.arguments = L"http://z prikazu";
  EXPECT_TRUE(w.startup.Form_Load());
  const auto icon = std::find(w.journal.begin(), w.journal.end(), L"Tray");
  const auto played = std::find(w.journal.begin(), w.journal.end(), L"ZobrazCoMas Stop");
  ASSERT_NE(played, w.journal.end());
  EXPECT_LT(icon - w.journal.begin(), played - w.journal.begin());
}

TEST_F(StartupTest, AReadOnlyFolderIsToldOnceWhenAllIsUpAndTheStationPlays) {
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

TEST_F(StartupTest, AReadOnlySettingsFileIsNamedAlone) {
  w.files.make_readonly(w.path(L"Orb_Data\\options.ini"));
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.advance(10);
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_TRUE(w.dialogs.shown[0].text.ends_with(L":\r\nC:\\Orb\\Orb_Data\\options.ini"));
}

TEST_F(StartupTest, WhatCanBeSavedIsNoNews) {
  EXPECT_TRUE(w.startup.Form_Load());
  w.loop.advance(10);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(StartupTest, WhatACrashLeftIsPutInOrderBeforeTheSettingsAreRead) {
  const std::string whole = w.get(L"Orb_Data\\options.ini");
  w.put(L"Orb_Data\\options.ini.new", whole.substr(0, whole.size() / 2));
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_FALSE(w.files.exists(w.path(L"Orb_Data\\options.ini.new")));
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), whole);
}

TEST_F(StartupTest, ASecondCopyLeavesTheFilesOfTheFirstAlone) {
  w.put(L"Orb_Data\\options.ini.new", "the first copy is writing this");
  w.machine.previous = true;
  EXPECT_FALSE(w.startup.Form_Load());
  EXPECT_TRUE(w.files.exists(w.path(L"Orb_Data\\options.ini.new")));
}

TEST_F(StartupTest, AStartInTheMiddleOfTheClientsWritingFindsTheLogin) {
  const auto lines = option_lines();
  w.put(L"Orb_Data\\options.ini", joined({lines.begin(), lines.begin() + 3}));
  w.loop.at(400, [&] { w.put(L"Orb_Data\\options.ini", joined(lines)); });
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_TRUE(w.dialogs.shown.empty());
  EXPECT_EQ(w.settings.idh, L"idhhodnota");
}

} // namespace
} // namespace lumotune::test
