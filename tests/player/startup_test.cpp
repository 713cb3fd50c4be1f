// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

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

TEST_F(StartupTest, ASecondStartWhileTheSkinLoadsShowsTheWindowAfterwards) {
  SkinDuringWhichAClientSends sending(w, {"fmax"});
  w.startup.skin.bind(sending);
  EXPECT_TRUE(w.startup.Form_Load());
  EXPECT_FALSE(w.did(L"FormMax"));
  w.loop.run_pending();
  EXPECT_TRUE(w.did(L"FormMax"));
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

} // namespace
} // namespace lumotune::test
