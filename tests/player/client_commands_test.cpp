// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace lumotune::test {
namespace {

struct ClientCommandsTest : testing::Test {
  PlayerWorld w;
  ClientCommandsTest() {
    w.commands.Hook(true);
    w.player.set_auto_start(false);
    w.player.calls.clear();
  }
};

TEST_F(ClientCommandsTest, PlaysAnAddressAndComesToTheFront) {
  w.settings.IDlastRadio = L"RADIO1";
  EXPECT_EQ(w.command("p:http://adresa/\xe8"), -1);
  EXPECT_EQ(w.player.url(), L"http://adresa/č");
  EXPECT_EQ(w.player.calls.back(), L"play");
  EXPECT_EQ(w.window.activated, 1);
  EXPECT_FALSE(w.window.visible()) << "a hidden window stays hidden";
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
}

TEST_F(ClientCommandsTest, EachAddressSaysWhereItComesFrom) {
  using platform::AddressOrigin;
  const auto origin_after = [this](const std::string& text) {
    w.player.set_url(L"", AddressOrigin::listener);
    w.command(text);
    return w.player.origin();
  };
  EXPECT_EQ(origin_after("p:C:\\a.mp3"), AddressOrigin::message);
  EXPECT_EQ(origin_after("remoteplay/@/NIKDE1/@/1/@/\\\\host\\share\\x/@/x"), AddressOrigin::station);
  EXPECT_EQ(w.player.url(), L"\\\\host\\share\\x");
  EXPECT_EQ(origin_after("id:RADIO1"), AddressOrigin::listener) << "nothing was prepared";
  EXPECT_EQ(origin_after("play"), AddressOrigin::station);
  w.session.OverrideURL = L"file:///C:/x";
  EXPECT_EQ(origin_after("p:"), AddressOrigin::station) << "the pending address is not the message's";
  EXPECT_EQ(w.player.url(), L"file:///C:/x");
}

TEST_F(ClientCommandsTest, ABoxThatIsOpenComesBeforeTheWindowThatIsShown) {
  w.dialogs.while_open = [&] { w.command("fmax"); };
  (void)w.dialogs.message(L"Zpráva", L"Okno", platform::BoxIcon::information, platform::BoxButtons::ok);
  EXPECT_TRUE(w.did(L"FormMax"));
  EXPECT_EQ(w.dialogs.brought_forward, 1);
  w.command("fmax");
  EXPECT_EQ(w.dialogs.brought_forward, 1) << "none is open any more";
}

TEST_F(ClientCommandsTest, IsAnsweredBeforeItIsCarriedOut) {
  EXPECT_EQ(w.messages.deliver("play"), -1);
  EXPECT_FALSE(w.called(L"play"));
  w.loop.run_pending();
  EXPECT_TRUE(w.called(L"play"));
}

TEST_F(ClientCommandsTest, SetsStationAndQuality) {
  w.command("id:RADIO2");
  w.command("IDK:2");
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO2");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  w.command("PLAY");
  EXPECT_EQ(w.player.url(), L"u2b");
}

TEST_F(ClientCommandsTest, AnEmptyQualityPlaysTheFirst) {
  w.command("id:RADIO1");
  w.command("idk:");
  w.command("play");
  EXPECT_EQ(w.player.url(), L"u1a");
}

TEST_F(ClientCommandsTest, RemotePlayOfAnUnknownStationPlaysItsAddressOnce) {
  w.command("remoteplay/@/NIKDE1/@/4/@/http://odjinud/@/Cizi r\xe1"
            "dio");
  EXPECT_EQ(w.player.url(), L"http://odjinud");
  EXPECT_EQ(w.session.OverrideName, L"Cizi rádio");
  EXPECT_EQ(w.settings.KvalitaLT, L"4");
  w.command("play");
  EXPECT_EQ(w.player.url(), L"") << "the address is used up";
  EXPECT_EQ(w.session.OverrideName, L"Cizi rádio") << "the name stays until it is replaced";
}

TEST_F(ClientCommandsTest, RemotePlayOfAKnownStationPlaysTheStation) {
  w.command("remoteplay/@/radio1/@/2/@/http://odjinud/@/Jm\xe9no");
  EXPECT_EQ(w.player.url(), L"u2a");
}

TEST_F(ClientCommandsTest, RemotePlayWithMissingFieldsStillStarts) {
  w.session.OverrideName = L"staré";
  w.command("remoteplay/@/RADIO1");
  EXPECT_EQ(w.player.url(), L"u1a");
  EXPECT_EQ(w.settings.KvalitaLT, L"1");
  EXPECT_EQ(w.session.OverrideName, L"");
  w.command("remoteplay");
  EXPECT_EQ(w.settings.IDlastRadio, L"");
  EXPECT_EQ(w.player.calls.back(), L"play");
}

TEST_F(ClientCommandsTest, ListAndFmaxMustBeTheWholeText) {
  w.command("list");
  w.command("FMAX");
  EXPECT_EQ(w.journal, (Journal{L"ZobrazOblibene", L"FormMax"}));
  w.journal.clear();
  w.command("listx");
  w.command("fmax ");
  w.command("playnow");
  w.command("neznamy");
  w.command("");
  EXPECT_TRUE(w.journal.empty());
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(ClientCommandsTest, OtherKindsAreAcceptedAndIgnored) {
  EXPECT_EQ(w.messages.deliver("play", 2), -1);
  EXPECT_EQ(w.messages.deliver("play", 0), -1);
  w.loop.run_pending();
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(ClientCommandsTest, ATerminatingZeroIsNotPartOfTheText) {
  w.command(std::string("fmax\0", 5));
  EXPECT_TRUE(w.did(L"FormMax"));
}

TEST_F(ClientCommandsTest, AnAbsurdLengthArrivesEmpty) {
  EXPECT_EQ(w.command("p:" + std::string(platform::WindowMessages::max_bytes, 'x')), -1);
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(ClientCommandsTest, ACommandThatComesDuringAnotherWaitsItsTurn) {
  w.favourites.during = [this] {
    w.favourites.during = {};
    w.messages.deliver("fmax");
    w.loop.run_pending();
    EXPECT_FALSE(w.did(L"FormMax")) << "not inside the first one";
    w.journal.emplace_back(L"list done");
  };
  w.command("list");
  EXPECT_EQ(w.journal, (Journal{L"ZobrazOblibene", L"list done", L"FormMax"}));
}

TEST_F(ClientCommandsTest, AFloodIsBounded) {
  for (int i = 0; i < 10000; ++i)
    EXPECT_EQ(w.messages.deliver("fmax"), -1);
  w.loop.run_pending();
  EXPECT_EQ(w.journal.size(), player::ClientCommands::max_waiting);
}

TEST_F(ClientCommandsTest, ALongCommandIsNone) {
  const std::string longest = "p:" + std::string(player::ClientCommands::max_command - 2, 'x');
  w.command(longest);
  EXPECT_EQ(w.player.url().size(), longest.size() - 2);
  w.player.calls.clear();
  EXPECT_EQ(w.command(longest + "x"), -1);
  EXPECT_TRUE(w.player.calls.empty());
  w.command("fmax" + std::string(1, '\0') + std::string(100'000, 'x'));
  EXPECT_TRUE(w.did(L"FormMax")) << "what follows a zero is not part of it";
}

TEST_F(ClientCommandsTest, ALongIdentifierOrQualityIsNone) {
  const std::string hundred(100, 'R');
  w.command("id:" + hundred);
  w.command("idk:" + hundred);
  EXPECT_EQ(w.settings.IDlastRadio.size(), 100U);
  EXPECT_EQ(w.settings.KvalitaLT.size(), 100U);
  w.command("id:RADIO1");
  w.command("idk:2");
  w.command("id:" + hundred + "R");
  w.command("idk:" + hundred + "R");
  w.player.calls.clear();
  w.command("remoteplay/@/" + hundred + "R/@/1/@/http://a/@/jmeno");
  w.command("remoteplay/@/RADIO2/@/" + hundred + "R/@/http://a/@/jmeno");
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  EXPECT_EQ(w.session.OverrideURL, L"");
  EXPECT_TRUE(w.player.calls.empty());
}

// Each of these takes its time, as a list does when the station file is long.
TEST_F(ClientCommandsTest, BetweenManyCommandsTheUserHasHisTurn) {
  std::size_t done_before_click = 0;
  w.favourites.during = [this] { w.loop.advance(8); };
  for (int i = 0; i < 200; ++i)
    w.messages.deliver("list");
  w.loop.run_pending();
  EXPECT_GT(w.journal.size(), 1U) << "some at a stretch";
  EXPECT_LT(w.journal.size(), 10U) << "but not all";
  w.loop.at(1, [&] { done_before_click = w.journal.size(); });
  w.loop.advance(1);
  EXPECT_LT(done_before_click, 10U);
  w.loop.advance(60'000);
  EXPECT_EQ(w.journal.size(), 200U) << "none is lost";
}

TEST_F(ClientCommandsTest, WithoutTheHookNothingArrives) {
  w.commands.Hook(false);
  EXPECT_EQ(w.command("fmax"), 0);
  EXPECT_TRUE(w.journal.empty());
}

TEST_F(ClientCommandsTest, ACommandThatFailsDoesNotDeafenTheWindow) {
  w.favourites.during = [this] {
    w.favourites.during = {};
    throw std::runtime_error("favourites");
  };
  w.messages.deliver("list");
  try {
    w.loop.run_pending();
  } catch (const std::runtime_error&) {
    w.journal.emplace_back(L"reached the loop"); // whose entry from the system catches all
  }
  w.command("fmax");
  EXPECT_TRUE(w.did(L"FormMax"));
}

TEST_F(ClientCommandsTest, NothingIsCarriedOutOnceTheProgramEnds) {
  w.favourites.during = [this] { w.loop.quit(); };
  w.messages.deliver("list");
  w.messages.deliver("fmax");
  w.loop.run_pending();
  EXPECT_EQ(w.journal, (Journal{L"ZobrazOblibene"}));
}

TEST_F(ClientCommandsTest, TextsOfTwoTestsAreToldApart) {
  w.settings.KvalitaLT = L"2";
  w.command("id:K:3");
  EXPECT_EQ(w.settings.IDlastRadio, L"K:3");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  w.command("id:");
  EXPECT_EQ(w.settings.IDlastRadio, L"");
}

} // namespace
} // namespace lumotune::test
