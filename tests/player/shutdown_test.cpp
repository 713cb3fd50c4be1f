// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct ShutdownTest : testing::Test {
  PlayerWorld w;
  void start() {
    ASSERT_TRUE(w.startup.Form_Load());
    w.journal.clear();
  }
};

TEST_F(ShutdownTest, UnhooksSavesAndEnds) {
  start();
  w.shutdown.Konec();
  EXPECT_FALSE(w.messages.hooked());
  EXPECT_EQ(w.journal, (Journal{L"remove tray", L"OnTopNO"}));
  EXPECT_TRUE(w.loop.quitting());
  EXPECT_TRUE(w.called(L"stop"));
}

TEST_F(ShutdownTest, TheMachineIsToldFirst) {
  start();
  EXPECT_FALSE(w.machine.ending);
  w.messages.on_look_up = [&](const std::wstring&) { EXPECT_TRUE(w.machine.ending); };
  bool told = false;
  const auto work = w.loop.make_waker([&] { told = w.machine.ending; }); // runs in the first of its waits
  work->wake();
  w.shutdown.Konec();
  EXPECT_TRUE(told) << "a copy that starts now must wait";
}

TEST_F(ShutdownTest, CommandsThatStillWaitDoNothing) {
  start();
  w.player.calls.clear();
  EXPECT_EQ(w.messages.deliver("p:http://klient"), -1);
  EXPECT_EQ(w.messages.deliver("id:RADIO9"), -1);
  w.shutdown.Konec();
  w.loop.advance(1000);
  EXPECT_FALSE(w.called(L"play"));
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("#012:LTLast:RADIO1/2\r\n"), std::string::npos);
}

TEST_F(ShutdownTest, TheCommandsBehindTheOneThatRunsDoNothingEither) {
  start();
  w.favourites.during = [this] { w.shutdown.Konec(); };
  for (const char* text : {"list", "id:RADIO9", "p:http://klient"})
    EXPECT_EQ(w.messages.deliver(text), -1);
  w.loop.run_pending();
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(ShutdownTest, APressThatStillWaitedIsNotHeard) {
  start();
  w.loop.at(0, [&] { w.form.PlayTL.press(); });
  w.shutdown.Konec();
  EXPECT_FALSE(w.called(L"play"));
  EXPECT_FALSE(w.player.playing());
}

TEST_F(ShutdownTest, APressWhileTheSettingsAreWaitedForIsNotHeard) {
  start();
  w.files.set_being_written(w.path(L"Orb_Data\\options.ini"), true);
  bool pressed = false;
  w.loop.at(200, [&] {
    w.form.PlayTL.press();
    pressed = true;
  });
  w.shutdown.Konec();
  EXPECT_TRUE(pressed);
  EXPECT_FALSE(w.called(L"play"));
  EXPECT_EQ(w.journal, (Journal{L"remove tray", L"OnTopNO"})) << "neither a report nor the playing state";
}

TEST_F(ShutdownTest, WhatWaitsForTheUserClosesAndNothingOpensAnyMore) {
  start();
  w.loop.at(0, [&] {
    EXPECT_EQ(w.dialogs.message(L"Otázka", L"Okno", platform::BoxIcon::information, platform::BoxButtons::yes_no),
              platform::BoxAnswer::no);
  });
  w.shutdown.Konec();
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(ShutdownTest, KeepsWhatTheClientWroteMeanwhile) {
  start();
  auto lines = option_lines();
  lines[8] = "#008:klient:nova hodnota";
  w.put(L"Orb_Data\\options.ini", joined(lines));
  w.playback.VolumeSet(90);
  w.shutdown.Konec();
  lines[20] = "#020:LTvolume:90";
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(lines));
}

TEST_F(ShutdownTest, TheOnTopFlagIsSavedBeforeTheLayerIsLeft) {
  w.set_option(11, "#011:LTTop:1");
  start();
  w.shutdown.Konec();
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("#011:LTTop:1\r\n"), std::string::npos);
}

TEST_F(ShutdownTest, ASettingsFileThatWentAwayIsNotInvented) {
  start();
  (void)w.files.remove(w.path(L"Orb_Data\\options.ini"));
  w.shutdown.Konec();
  EXPECT_FALSE(w.files.exists(w.path(L"Orb_Data\\options.ini")));
  EXPECT_TRUE(w.loop.quitting());
}

TEST_F(ShutdownTest, TellsTheClientItStartedToEnd) {
  w.messages.remove_window(L"Orb - Lumotune");
  start();
  w.messages.add_window(L"Orb - Lumotune", platform::WindowRef{8});
  w.shutdown.Konec();
  ASSERT_EQ(w.messages.sent.size(), 1U);
  EXPECT_EQ(w.messages.sent[0].bytes, "orbend");
}

TEST_F(ShutdownTest, LeavesAClientThatRanBeforeAlone) {
  start();
  w.shutdown.Konec();
  EXPECT_TRUE(w.messages.sent.empty());
}

TEST_F(ShutdownTest, AStartedClientThatIsGoneIsNotStartedAgain) {
  w.messages.remove_window(L"Orb - Lumotune");
  start();
  w.shell.started.clear();
  w.shutdown.Konec();
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(ShutdownTest, RunsOnce) {
  start();
  w.shutdown.Konec();
  w.shutdown.Form_Unload();
  EXPECT_EQ(w.journal, (Journal{L"remove tray", L"OnTopNO"}));
}

TEST_F(ShutdownTest, WhatStillWaitsIsHandledAfterTheHookIsGone) {
  start();
  bool hooked = true;
  w.loop.at(0, [&] { hooked = w.messages.hooked(); });
  w.shutdown.Konec();
  EXPECT_FALSE(hooked);
}

TEST_F(ShutdownTest, TheIconGoesBeforeTheSettingsAreSaved) {
  start();
  w.journal.clear();
  struct Watch final : player::ChromePort {
    explicit Watch(PlayerWorld& world) : w(world) {}
    void OnTopYES() override {}
    void OnTopNO() override { saved_before_layer = w.files.changes().size() > changes; }
    void FormMax() override {}
    void Tray() override {}
    void remove_tray() override { changes = w.files.changes().size(); }
    PlayerWorld& w;
    std::size_t changes = 0;
    bool saved_before_layer = false;
  } watch(w);
  w.shutdown.chrome.bind(watch);
  w.shutdown.Konec();
  EXPECT_TRUE(watch.saved_before_layer);
}

TEST_F(ShutdownTest, ALockedSettingsFileDoesNotKeepTheProgram) {
  start();
  w.files.make_readonly(w.path(L"Orb_Data\\options.ini"));
  w.shutdown.Konec();
  EXPECT_TRUE(w.loop.quitting());
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
}

TEST_F(ShutdownTest, AClientThatGoesAtTheLastMomentIsNotStartedAgain) {
  w.messages.remove_window(L"Orb - Lumotune");
  start();
  w.messages.add_window(L"Orb - Lumotune", platform::WindowRef{8});
  w.shell.started.clear();
  w.messages.on_look_up = [this](const std::wstring&) {
    w.messages.on_look_up = {};
    w.loop.at(0, [this] { w.messages.remove_window(L"Orb - Lumotune"); });
  };
  w.shutdown.Konec();
  EXPECT_TRUE(w.messages.sent.empty());
  EXPECT_TRUE(w.shell.started.empty());
}

} // namespace
} // namespace lumotune::test
