// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/boxes.h"
#include "tests/player/favourites_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;

struct FavouritesEventsTest : FavouritesWorld {};

TEST_F(FavouritesEventsTest, AClickTunesTheEntryAndPlaysNothing) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  w.player.set_url(L"", platform::AddressOrigin::listener);
  w.player.calls.clear();
  ASSERT_TRUE(list.user_pick(1));
  EXPECT_EQ(w.settings.IDlastRadio, L"radio2");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  EXPECT_EQ(w.player.url(), L"u2b");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::station);
  EXPECT_EQ(w.session.favourite_line, L"lt:radio2/2");
  EXPECT_TRUE(w.form.PlayTL.enabled());
  EXPECT_FALSE(w.called(L"play"));
}

// A skin may let the list stay while a station plays.
TEST_F(FavouritesEventsTest, AClickOnAnotherEntryWhileAStationPlaysStopsItAndOnePressPlaysTheNewOne) {
  w.playback.favourites.bind(favourites);
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  w.playback.PlayTL_Click();
  list.set_visible(true);
  w.put(L"list.tt", "lt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(1));
  EXPECT_FALSE(w.player.playing());
  EXPECT_EQ(w.form.PlayTL.text(), L"Zapnout");
  EXPECT_FALSE(w.form.InfoName.visible() || w.form.InfoTime.visible() || w.form.InfoStatus.visible());
  EXPECT_FALSE(w.form.InfoNaladit.visible());
  EXPECT_TRUE(list.visible());
  EXPECT_EQ(list.count(), 2U) << "the list is not read anew";
  EXPECT_EQ(list.selected(), 1U);
  w.form.PlayTL.press();
  EXPECT_TRUE(w.player.playing());
  EXPECT_EQ(w.player.url(), L"u2b");
}

TEST_F(FavouritesEventsTest, AClickOnTheEntryThatPlaysLeavesItPlaying) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  w.playback.PlayTL_Click();
  list.set_visible(true);
  ASSERT_TRUE(list.user_pick(0));
  EXPECT_TRUE(w.player.playing());
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
}

TEST_F(FavouritesEventsTest, TheCurrentLineBeginsEmpty) {
  EXPECT_EQ(w.session.favourite_line, L"lt:/");
}

TEST_F(FavouritesEventsTest, ADoubleClickPlaysTheEntry) {
  show("lt:RADIO1/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  w.player.set_url(L"", platform::AddressOrigin::listener);
  ASSERT_TRUE(list.user_double_click());
  EXPECT_EQ(w.player.url(), L"u2a");
  EXPECT_EQ(w.player.origin(), platform::AddressOrigin::station);
  EXPECT_EQ(w.player.calls.back(), L"play");
  EXPECT_EQ(w.session.station_name, L"První");
}

TEST_F(FavouritesEventsTest, TheHintOpensTheDirectory) {
  list.add(L"Klikněte na naladit...");
  ASSERT_TRUE(list.user_pick(0));
  EXPECT_EQ(w.journal, (Journal{L"Naladit"}));
  EXPECT_EQ(w.session.favourite_line, L"lt:/");
  ASSERT_TRUE(list.user_double_click());
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(FavouritesEventsTest, AClickOnNothingDoesNothing) {
  show("lt:RADIO1/2\r\n");
  ASSERT_TRUE(list.user_click());
  ASSERT_TRUE(list.user_double_click());
  EXPECT_EQ(w.settings.IDlastRadio, L"");
  EXPECT_FALSE(w.called(L"play") || w.did(L"play picture"));
}

TEST_F(FavouritesEventsTest, TheRightButtonSelectsFirstAndThenOpensTheMenu) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  // The system's click arrives with the pending events.
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_pick(1); }); };
  w.journal.clear();
  right_click();
  EXPECT_EQ(pointer.clicks, 1);
  EXPECT_EQ(w.settings.IDlastRadio, L"radio2");
  EXPECT_EQ(w.journal, (Journal{L"play picture", L"menu of radio2"}));
}

TEST_F(FavouritesEventsTest, AClickThatTheSystemDeliversLateStillChoosesTheRow) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  pointer.on_click = [&] {
    w.loop.at(120, [&] { list.user_mouse_down({MouseButton::left, 30, 330}); });
    w.loop.at(180, [&] { list.user_pick(1); });
  };
  w.journal.clear();
  const std::uint32_t before = w.loop.tick_count_ms();
  ASSERT_TRUE(list.user_mouse_down({MouseButton::right, 30, 330}));
  EXPECT_EQ(w.journal, (Journal{L"play picture", L"menu of radio2"}));
  EXPECT_GE(w.loop.tick_count_ms() - before, 180U) << "a menu that is open already would get the click";
}

TEST_F(FavouritesEventsTest, AClickThatNeverComesIsMadeUpFor) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  const std::uint32_t before = w.loop.tick_count_ms();
  ASSERT_TRUE(list.user_mouse_down({MouseButton::right, 30, 330}));
  EXPECT_EQ(list.selected(), 1U);
  EXPECT_EQ(w.settings.IDlastRadio, L"radio2") << "as a click does it";
  EXPECT_EQ(w.journal.back(), L"menu of radio2");
  EXPECT_LT(w.loop.tick_count_ms() - before, 1000U);
}

TEST_F(FavouritesEventsTest, ARightClickBesideTheRowsWaitsForNoRow) {
  show("lt:RADIO1/1\r\n");
  ASSERT_TRUE(list.user_pick(0));
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_mouse_down({MouseButton::left, 30, 1500}); }); };
  const std::uint32_t before = w.loop.tick_count_ms();
  ASSERT_TRUE(list.user_mouse_down({MouseButton::right, 30, 1500}));
  EXPECT_EQ(w.journal.back(), L"menu of RADIO1");
  EXPECT_LT(w.loop.tick_count_ms() - before, 50U);
}

TEST_F(FavouritesEventsTest, OtherButtonsDoNothing) {
  show("lt:RADIO1/1\r\n");
  for (const MouseButton button : {MouseButton::left, MouseButton::middle, MouseButton::none})
    ASSERT_TRUE(list.user_mouse_down({button, 30, 30}));
  EXPECT_EQ(pointer.clicks, 0);
  EXPECT_TRUE(w.journal.empty());
}

TEST_F(FavouritesEventsTest, TheInjectedClickCannotRecurse) {
  show("lt:RADIO1/1\r\n");
  // A machine on which the injected button arrives as the right one.
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_mouse_down({MouseButton::right, 30, 30}); }); };
  right_click();
  EXPECT_EQ(pointer.clicks, 1);
  EXPECT_EQ(std::count(w.journal.begin(), w.journal.end(), L"menu of RADIO1"), 1);
  right_click();
  EXPECT_EQ(pointer.clicks, 2) << "and the next one works again";
}

TEST_F(FavouritesEventsTest, TheInjectedClickIsNoHalfOfADoubleClick) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_double_click(); }); };
  ASSERT_TRUE(list.user_pick(0));
  right_click();
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(FavouritesEventsTest, NoMenuWhenTheListHasGoneMeanwhile) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { list.set_visible(false); }); };
  right_click();
  EXPECT_EQ(w.journal, Journal{});
}

TEST_F(FavouritesEventsTest, NoMenuWhenTheProgramEnds) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { w.loop.quit(); }); };
  right_click();
  EXPECT_EQ(w.journal, Journal{});
}

TEST_F(FavouritesEventsTest, TheMenuBesideTheRowsIsOfNoStation) {
  show("");
  list.set_visible(true);
  right_click();
  EXPECT_EQ(w.journal, (Journal{L"menu of "}));
}

// Removing.

TEST_F(FavouritesEventsTest, RemovingTakesTheLineOutAndTells) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  std::size_t listed = 99;
  w.dialogs.while_open = [&] { listed = list.count(); };
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:radio2/2\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, L"Rádio bylo ostraněno z oblíbených.");
  EXPECT_EQ(w.dialogs.shown[0].title, base::box_title);
  EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_EQ(w.dialogs.shown[0].buttons, platform::BoxButtons::ok);
  EXPECT_EQ(listed, 1U) << "the list is right before the box is shown";
}

TEST_F(FavouritesEventsTest, RemovingWhatIsNotThereRewritesWithoutAWord) {
  show("\r\nlt:RADIO1/1\r\n\r\npozn\xe1mka\r\n\r\n");
  w.journal.clear();
  favourites.DeleteFromOblibene(L"lt:RADIO9/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/1\r\npozn\xe1mka\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(FavouritesEventsTest, RemovingTheLastOneShowsTheHint) {
  show("lt:RADIO1/1\r\n");
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\n");
  EXPECT_TRUE(w.form.InfoNaladit.visible());
}

TEST_F(FavouritesEventsTest, AFileThatCannotBeReadOrWrittenKeepsItsFavourites) {
  show("lt:RADIO1/1\r\n");
  w.files.make_unreadable(w.path(L"list.tt"));
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  w.files.mend(w.path(L"list.tt"));
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 2U) << "once each";
  EXPECT_EQ(w.dialogs.shown[0].text, stations::favourites_not_saved);
  EXPECT_EQ(w.dialogs.shown[1].text, stations::favourites_not_saved);
}

TEST_F(FavouritesEventsTest, RemovingFromNoFileMakesAnEmptyOne) {
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty());
}

} // namespace
} // namespace lumotune::test
