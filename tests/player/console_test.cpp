// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/boxes.h"
#include "player/console.h"

#include "platform/memory/menus.h"
#include "player/media_key_rule.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct ConsoleTest : testing::Test {
  PlayerWorld w;
  platform::memory::InputBox input{w.loop};
  player::Console console{{w.session, w.loop, input, w.dialogs, w.playback}};

  ConsoleTest() {
    input.modal.lets_run(w.loop);
    w.player.set_auto_start(false);
    w.player.calls.clear();
  }
  // The user types these, one box after the other; how many boxes there were.
  std::size_t type(std::deque<std::optional<std::wstring>> answers) {
    input.asked.clear();
    input.answers = std::move(answers);
    console.LTconsole();
    return input.asked.size();
  }
};

TEST_F(ConsoleTest, AsksOnce) {
  EXPECT_EQ(type({L"nic"}), 1U);
  EXPECT_EQ(input.asked[0].prompt, L"Lumotune console");
  EXPECT_EQ(input.asked[0].title, base::box_title);
  EXPECT_EQ(input.asked[0].default_text, L"");
  EXPECT_TRUE(w.player.calls.empty() && w.dialogs.shown.empty() && w.journal.empty());
}

TEST_F(ConsoleTest, ACancelledBoxDoesNothing) {
  EXPECT_EQ(type({std::nullopt}), 1U);
  EXPECT_EQ(type({L""}), 1U);
  EXPECT_TRUE(w.player.calls.empty() && w.dialogs.shown.empty() && w.journal.empty());
}

TEST_F(ConsoleTest, HelpIsAPlainBox) {
  EXPECT_EQ(type({L"HeLp"}), 1U);
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text,
            L"LTCC - HELP:\r\nvol=(hodnota 0 - 100)\r\nurl=(adresa na internetu nebo v počítači)");
  EXPECT_EQ(w.dialogs.shown[0].title, base::box_title);
  EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::none);
  EXPECT_EQ(w.dialogs.shown[0].buttons, platform::BoxButtons::ok);
}

TEST_F(ConsoleTest, HelpMustBeTheWholeText) {
  EXPECT_EQ(type({L"helpme"}), 1U);
  EXPECT_EQ(type({L" help"}), 1U);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(ConsoleTest, ADotAtTheEndOpensTheConsoleAgain) {
  EXPECT_EQ(type({L"help.", L"vol=20.", L"vol=30"}), 3U);
  EXPECT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.settings.LTvolume, L"30");
}

TEST_F(ConsoleTest, ADotAloneRunsNothingAndOpensAgain) {
  EXPECT_EQ(type({L".", L"."}), 3U) << "until the box is cancelled";
  EXPECT_TRUE(w.player.calls.empty() && w.dialogs.shown.empty());
}

TEST_F(ConsoleTest, OnlyOneDotIsTakenOff) {
  EXPECT_EQ(type({L"url=http://a..", std::nullopt}), 2U);
  EXPECT_EQ(w.player.url(), L"http://a.");
}

TEST_F(ConsoleTest, AThousandDotsAreALoop) {
  EXPECT_EQ(type(std::deque<std::optional<std::wstring>>(20000, L".")), 20001U);
}

TEST_F(ConsoleTest, SetsTheVolume) {
  const std::vector<std::pair<std::wstring, std::wstring>> typed = {
      {L"vol=0", L"0"},     {L"VOL=85", L"85"},
      {L"vol= 7", L"7"},    {L"vol=-5", L"0"},
      {L"vol=+12", L"12"},  {L"vol=100", L"100"},
      {L"vol=101", L"100"}, {L"vol=1e9", L"1"},
      {L"vol=.9", L"1"},    {L"vol=99999999999999999999", L"100"}};
  for (const auto& [text, volume] : typed) {
    w.settings.LTvolume = L"?";
    type({text});
    EXPECT_EQ(w.settings.LTvolume, volume) << testing::PrintToString(text);
  }
}

TEST_F(ConsoleTest, AVolumeWithoutANumberDoesNothing) {
  w.settings.LTvolume = L"?";
  for (const wchar_t* text : {L"vol=", L"vol=x", L"vol=-", L"vol= ", L"vol=..", L"vol", L"vol 5", L"vol=x5", L"vol=Q5",
                              L"vol=--5", L"vol=+-5"})
    type({text});
  EXPECT_EQ(w.settings.LTvolume, L"?");
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(ConsoleTest, PlaysAnAddressUnderTheProgramsOwnName) {
  w.settings.IDlastRadio = L"RADIO1";
  type({L"URL=http://a/b c"});
  EXPECT_EQ(w.player.url(), L"http://a/b c");
  EXPECT_EQ(w.player.calls.back(), L"play");
  EXPECT_EQ(w.session.station_name, L"Orb - Lumotune");
  w.status.tick();
  EXPECT_EQ(w.form.InfoName.text(), L"Orb - Lumotune");
}

// What the listener types may lie anywhere; what "remoteplay" left behind is a station's address, whoever asks.
TEST_F(ConsoleTest, AnAddressIsTheListenersOwnButForThePendingOne) {
  type({L"url=C:\\hudba\\a.mp3"});
  EXPECT_EQ(w.player.url(), L"C:\\hudba\\a.mp3");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::listener);
  w.session.OverrideURL = L"\\\\host\\share\\x";
  type({L"url="});
  EXPECT_EQ(w.player.url(), L"\\\\host\\share\\x");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::station);
}

TEST_F(ConsoleTest, AnEmptyAddressTakesThePendingOne) {
  w.session.OverrideURL = L"http://jednou";
  type({L"url="});
  EXPECT_EQ(w.player.url(), L"http://jednou");
  type({L"url="});
  EXPECT_EQ(w.player.url(), L"");
}

TEST_F(ConsoleTest, OnlyOneConsoleIsOpen) {
  input.while_open = [&] { console.LTconsole(); };
  w.dialogs.while_open = [&] { console.LTconsole(); };
  EXPECT_EQ(type({L"help"}), 1U);
  input.while_open = {};
  EXPECT_EQ(type({L"x"}), 1U) << "and then it opens again";
}

TEST_F(ConsoleTest, EndsWithTheProgram) {
  input.while_open = [&] { w.loop.quit(); };
  EXPECT_EQ(type({L"url=http://a.", L"url=http://b."}), 1U);
  EXPECT_TRUE(w.player.calls.empty());
}

struct MediaKeyTest : testing::Test {
  PlayerWorld w;
  platform::memory::MediaKeys keys;
  player::MediaKeyRule& rule = w.media_keys;
  MediaKeyTest() {
    w.player.set_auto_start(false);
    w.player.calls.clear();
  }
};

TEST_F(MediaKeyTest, PlayPressesTheButtonEitherWay) {
  w.playback.PripravHrani(L"http://a");
  rule.start(keys);
  ASSERT_TRUE(keys.taken);
  keys.on_play_pause();
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
  keys.on_play_pause();
  EXPECT_EQ(w.form.PlayTL.text(), L"Zapnout");
}

TEST_F(MediaKeyTest, StopStopsAndNeverStarts) {
  rule.start(keys);
  w.playback.PripravHrani(L"http://a");
  w.player.calls.clear();
  keys.on_stop();
  EXPECT_TRUE(w.player.calls.empty());
  w.playback.Play();
  keys.on_stop();
  EXPECT_EQ(w.player.calls.back(), L"stop");
}

TEST_F(MediaKeyTest, NothingPreparedNothingPlays) {
  rule.start(keys);
  keys.on_play_pause();
  EXPECT_TRUE(w.player.calls.empty());
}

TEST_F(MediaKeyTest, TheKeysAreLeftToOthersUntilSomethingCanBePlayed) {
  rule.start(keys);
  EXPECT_FALSE(keys.taken);
  w.playback.PripravHrani(L"http://a");
  EXPECT_TRUE(keys.taken);
  platform::memory::MediaKeys later;
  player::MediaKeyRule second{{w.form, w.session}};
  second.start(later);
  EXPECT_TRUE(later.taken) << "something could be played before";
}

TEST_F(MediaKeyTest, OffLeavesTheKeysAlone) {
  rule.start(keys, false);
  w.playback.PripravHrani(L"http://a");
  EXPECT_FALSE(keys.taken || keys.on_play_pause || keys.on_stop);
}

} // namespace
} // namespace lumotune::test
