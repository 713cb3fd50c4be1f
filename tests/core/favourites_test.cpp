// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/favourites.h"

#include "platform/memory/menus.h"
#include "tests/support/core_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::MouseButton;

struct RecordingFavouriteMenu final : core::FavouriteMenuPort {
  explicit RecordingFavouriteMenu(Journal& journal_used) : journal(journal_used) {}
  void set_tune_caption(const std::wstring& caption) override { journal.push_back(L"caption " + caption); }
  void open_favourite() override { journal.emplace_back(L"favourite menu"); }
  Journal& journal;
};

struct FavouritesTest : testing::Test {
  CoreWorld w;
  platform::memory::MemoryPointer pointer;
  core::Favourites favourites{
      {w.files, w.codec, w.machine, w.settings, w.session, w.form, w.playback, w.stations, w.dialogs, w.loop, pointer}};
  RecordingFavouriteMenu menu{w.journal};
  platform::memory::MemoryList& list = *w.window.list(L"Control_List");

  FavouritesTest() {
    w.player.set_auto_start(false);
    favourites.directory.bind(w.directory);
    favourites.menu.bind(menu);
    list.on_click = [this] { favourites.Control_List_Click(); };
    list.on_double_click = [this] { favourites.Control_List_DblClick(); };
    list.on_mouse_down = [this](const platform::MouseEvent& event) { favourites.Control_List_MouseDown(event); };
  }
  void show(const std::string& favourites_file) {
    w.put(L"list.tt", favourites_file);
    favourites.ZobrazOblibene();
  }
  [[nodiscard]] std::vector<std::wstring> items() const {
    std::vector<std::wstring> all;
    for (std::size_t i = 0; i < list.count(); ++i)
      all.push_back(list.item(i));
    return all;
  }
  // As an item must be: the shown text padded to 93 columns, then the data.
  static std::wstring item(std::wstring shown, const std::wstring& data) {
    shown.resize(93, L' ');
    return shown + data;
  }
  static std::string file_of(const std::string& id, const std::string& name) {
    return CoreWorld::record(id, name, "u1", "u2");
  }
  void right_click() { ASSERT_TRUE(list.user_mouse_down({MouseButton::right, 30, 30})); }
};

TEST_F(FavouritesTest, AnEntryCarriesItsDataBehindTheShownColumns) {
  show("lt:RADIO1/2\r\n");
  ASSERT_EQ(list.count(), 1U);
  const std::wstring text = list.item(0);
  EXPECT_EQ(text, item(L"První  (128kbps)", L"2RADIO1u2a"));
  EXPECT_EQ(text.substr(93, 1), L"2") << "column 94";
  EXPECT_EQ(text.substr(94, 6), L"RADIO1") << "columns 95 to 100";
  EXPECT_EQ(text.substr(100), L"u2a") << "column 101 on";
}

TEST_F(FavouritesTest, EveryQualityHasItsOwnBitRateAndAddress) {
  show("lt:RADIO1/1\r\nlt:RADIO1/2\r\nlt:RADIO1/3\r\nlt:RADIO1/4\r\nlt:RADIO1/5\r\n");
  EXPECT_EQ(items(), (Journal{item(L"První  (64kbps)", L"1RADIO1u1a"), item(L"První  (128kbps)", L"2RADIO1u2a"),
                              item(L"První  (192kbps)", L"3RADIO1u3"), item(L"První  (256kbps)", L"4RADIO1u4"),
                              item(L"První  (320kbps)", L"5RADIO1u5")}));
}

TEST_F(FavouritesTest, TheOrderIsThatOfTheFavouritesFile) {
  show("lt:radio2/1\r\n\r\nlt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_EQ(list.count(), 3U);
  EXPECT_EQ(list.item(0).substr(94), L"radio2u1b");
  EXPECT_EQ(list.item(1).substr(94), L"RADIO1u1a");
  EXPECT_EQ(list.item(2).substr(94), L"radio2u2b");
}

TEST_F(FavouritesTest, LetterCaseOfPrefixAndIdentifierDoesNotMatter) {
  show("LT:radio1/1\r\nlT:RADIO2/2");
  EXPECT_EQ(items(), (Journal{item(L"První  (64kbps)", L"1radio1u1a"), item(L"Druhé  (128kbps)", L"2RADIO2u2b")}));
}

TEST_F(FavouritesTest, LetterCaseOfCzechIdentifiersDoesNotMatter) {
  w.put(L"radios.tt", file_of("\xc8"
                              "ESKY1",
                              "X"));
  show("lt:\xe8"
       "esky1/1\r\n");
  EXPECT_EQ(list.count(), 1U);
}

TEST_F(FavouritesTest, WhatIsNoFavouriteIsNotListed) {
  show("\r\nRADIO1/1\r\nlt:\r\nlt:RADIO1\r\nlt:RADIO1/\r\nlt:RADIO1/0\r\nlt:RADIO1/6\r\nlt:RADIO1/x\r\n lt:RADIO1/1\r\n"
       "lt:NEZNAM/1\r\nlt/RADIO1/1\r\n");
  EXPECT_EQ(list.count(), 0U);
}

TEST_F(FavouritesTest, AStationListedTwiceGivesOneEntryWithTheLaterFields) {
  w.put(L"radios.tt", file_of("RADIO1", "star\xe9") + file_of("RADIO3", "jin\xe9") + file_of("radio1", "nov\xe9"));
  show("lt:RADIO1/1\r\n");
  EXPECT_EQ(items(), (Journal{item(L"nové  (64kbps)", L"1RADIO1u1")}));
}

TEST_F(FavouritesTest, TheColumnsStandWhateverTheLengthOfTheName) {
  for (const std::size_t length : {0U, 79U, 80U, 81U, 93U, 94U, 5000U}) {
    w.put(L"radios.tt", file_of("RADIO1", std::string(length, 'n')));
    show("lt:RADIO1/1\r\n");
    ASSERT_EQ(list.count(), 1U) << length;
    const std::wstring whole = std::wstring(length, L'n') + L"  (64kbps)";
    EXPECT_EQ(list.item(0), item(whole, L"1RADIO1u1")) << length;
  }
}

TEST_F(FavouritesTest, MissingFieldsAreEmpty) {
  w.put(L"radios.tt", "RADIO1\r\nRADIO2/@/Jen jm\xe9no\r\n");
  show("lt:RADIO1/1\r\nlt:RADIO2/5\r\n");
  EXPECT_EQ(items(), (Journal{item(L"  (kbps)", L"1RADIO1"), item(L"Jen jméno  (kbps)", L"5RADIO2")}));
}

TEST_F(FavouritesTest, MissingFilesGiveAnEmptyList) {
  show("lt:RADIO1/1\r\n");
  (void)w.files.remove(w.path(L"radios.tt"));
  favourites.ZobrazOblibene();
  EXPECT_EQ(list.count(), 0U) << "no station is known, nor remembered from before";
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  w.put(L"radios.tt", file_of("RADIO1", "X"));
  (void)w.files.remove(w.path(L"list.tt"));
  favourites.ZobrazOblibene();
  EXPECT_EQ(list.count(), 0U);
}

TEST_F(FavouritesTest, EveryKindOfLineEndEndsALine) {
  w.put(L"radios.tt", "RADIO1/@/a\rRADIO3/@/c\nRADIO2/@/b");
  show("lt:RADIO1/1\rlt:RADIO2/1\nlt:RADIO3/1");
  EXPECT_EQ(items(),
            (Journal{item(L"a  (kbps)", L"1RADIO1"), item(L"b  (kbps)", L"1RADIO2"), item(L"c  (kbps)", L"1RADIO3")}));
}

TEST_F(FavouritesTest, ZeroBytesKeepTheColumns) {
  w.put(L"radios.tt", file_of("RADIO1", std::string("a\0b", 3)));
  show("lt:RADIO1/1\r\n");
  EXPECT_EQ(list.item(0), item(L"a b  (64kbps)", L"1RADIO1u1"));
}

TEST_F(FavouritesTest, LinesOfAMegabyteAreTaken) {
  const std::string megabyte(1024 * 1024, 'x');
  w.put(L"radios.tt", megabyte + "\r\n" + CoreWorld::record("RADIO1", megabyte, "u1a", megabyte) + megabyte);
  show(megabyte + "\r\nlt:RADIO1/2" + megabyte + "\r\nlt:" + megabyte);
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.item(0).substr(93, 7), L"2RADIO1");
  EXPECT_EQ(list.item(0).size(), 100 + megabyte.size());
}

TEST_F(FavouritesTest, TheStationFileIsReadOnceWhateverTheNumberOfFavourites) {
  const std::size_t before = w.files.reads(w.path(L"radios.tt"));
  show("lt:RADIO1/1\r\nlt:RADIO1/2\r\nlt:radio2/1\r\n");
  EXPECT_EQ(w.files.reads(w.path(L"radios.tt")), before + 1);
}

TEST_F(FavouritesTest, TheListIsBuiltAnew) {
  show("lt:RADIO1/1\r\nlt:radio2/1\r\n");
  ASSERT_TRUE(list.user_pick(1));
  show("lt:radio2/2\r\n");
  EXPECT_EQ(list.count(), 1U);
  EXPECT_EQ(list.selected(), platform::ListBox::none);
}

// What is seen.

TEST_F(FavouritesTest, FavouritesTakeThePlaceOfTheStationLabels) {
  w.form.Control_List.set_visible(false);
  show("lt:RADIO1/1\r\n");
  EXPECT_TRUE(w.form.Control_List.visible());
  EXPECT_FALSE(w.form.InfoName.visible() || w.form.InfoTime.visible() || w.form.InfoStatus.visible());
  EXPECT_FALSE(w.form.InfoNaladit.visible());
}

TEST_F(FavouritesTest, WithoutFavouritesTheHintIsShown) {
  w.form.InfoNaladit.set_visible(false);
  w.form.LTDisplay.set_visible(false);
  show("");
  EXPECT_TRUE(w.form.InfoNaladit.visible());
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_FALSE(w.form.InfoName.visible() || w.form.InfoTime.visible() || w.form.InfoStatus.visible());
  EXPECT_FALSE(w.form.LTDisplay.visible()) << "the skin does not ask for it";
}

TEST_F(FavouritesTest, TheDisplayStandsBehindAnEmptyListWhereTheSkinSaysSo) {
  w.session.skin.display_value = L"ShowIfNullList";
  w.form.LTDisplay.set_visible(false);
  show("");
  EXPECT_TRUE(w.form.LTDisplay.visible());
  show("lt:RADIO1/1\r\n");
  EXPECT_FALSE(w.form.LTDisplay.visible()) << "it goes with the hint";
}

TEST_F(FavouritesTest, ADisplayThatIsShownAnywayStays) {
  w.session.skin.display_value = L"showifnulllist";
  w.session.skin.display_show = L"show";
  w.session.skin.display_mode = L"showevery";
  show("lt:RADIO1/1\r\n");
  EXPECT_TRUE(w.form.LTDisplay.visible());
}

TEST_F(FavouritesTest, WhilePlayingOnlyTheContentChanges) {
  show("");
  w.playback.Play();
  w.form.Control_List.set_visible(false);
  show("lt:RADIO1/1\r\n");
  EXPECT_EQ(list.count(), 1U);
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_TRUE(w.form.InfoName.visible() && w.form.InfoTime.visible() && w.form.InfoStatus.visible());
  show("");
  EXPECT_FALSE(w.form.InfoNaladit.visible());
}

TEST_F(FavouritesTest, AnAddressOfTheClientsKeepsTheLabels) {
  w.session.OverrideURL = L"http://jednou";
  w.form.Control_List.set_visible(false);
  show("lt:RADIO1/1\r\n");
  EXPECT_EQ(list.count(), 1U);
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_TRUE(w.form.InfoName.visible());
}

// Clicks.

TEST_F(FavouritesTest, AClickTunesTheEntryAndPlaysNothing) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(1));
  EXPECT_EQ(w.settings.IDlastRadio, L"radio2");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  EXPECT_EQ(w.player.url(), L"u2b");
  EXPECT_EQ(w.session.favourite_line, L"lt:radio2/2");
  EXPECT_TRUE(w.form.PlayTL.enabled());
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(FavouritesTest, TheCurrentLineBeginsEmpty) {
  EXPECT_EQ(w.session.favourite_line, L"lt:/");
}

TEST_F(FavouritesTest, ADoubleClickPlaysTheEntry) {
  show("lt:RADIO1/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  ASSERT_TRUE(list.user_double_click());
  EXPECT_EQ(w.player.url(), L"u2a");
  EXPECT_EQ(w.player.calls.back(), L"play");
  EXPECT_EQ(w.session.station_name, L"První");
}

TEST_F(FavouritesTest, TheHintOpensTheDirectory) {
  list.add(L"Klikněte na naladit...");
  ASSERT_TRUE(list.user_pick(0));
  EXPECT_EQ(w.journal, (Journal{L"Naladit"}));
  EXPECT_EQ(w.session.favourite_line, L"lt:/");
  ASSERT_TRUE(list.user_double_click());
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(FavouritesTest, AClickOnNothingDoesNothing) {
  show("lt:RADIO1/2\r\n");
  ASSERT_TRUE(list.user_click());
  ASSERT_TRUE(list.user_double_click());
  EXPECT_EQ(w.settings.IDlastRadio, L"");
  EXPECT_FALSE(w.called(L"play") || w.did(L"play picture"));
}

TEST_F(FavouritesTest, TheRightButtonSelectsFirstAndThenOpensTheMenu) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  ASSERT_TRUE(list.user_pick(0));
  // The system's click arrives with the pending events.
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_pick(1); }); };
  w.journal.clear();
  right_click();
  EXPECT_EQ(pointer.clicks, 1);
  EXPECT_EQ(w.settings.IDlastRadio, L"radio2");
  EXPECT_EQ(w.journal, (Journal{L"play picture", L"caption Naladit rádio Druhé", L"favourite menu"}));
}

TEST_F(FavouritesTest, OtherButtonsDoNothing) {
  show("lt:RADIO1/1\r\n");
  for (const MouseButton button : {MouseButton::left, MouseButton::middle, MouseButton::none})
    ASSERT_TRUE(list.user_mouse_down({button, 30, 30}));
  EXPECT_EQ(pointer.clicks, 0);
  EXPECT_TRUE(w.journal.empty());
}

TEST_F(FavouritesTest, TheInjectedClickCannotRecurse) {
  show("lt:RADIO1/1\r\n");
  // A machine on which the injected button arrives as the right one.
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_mouse_down({MouseButton::right, 30, 30}); }); };
  right_click();
  EXPECT_EQ(pointer.clicks, 1);
  EXPECT_EQ(std::count(w.journal.begin(), w.journal.end(), L"favourite menu"), 1);
  right_click();
  EXPECT_EQ(pointer.clicks, 2) << "and the next one works again";
}

TEST_F(FavouritesTest, TheInjectedClickIsNoHalfOfADoubleClick) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { list.user_double_click(); }); };
  ASSERT_TRUE(list.user_pick(0));
  right_click();
  EXPECT_FALSE(w.called(L"play"));
}

TEST_F(FavouritesTest, NoMenuWhenTheListHasGoneMeanwhile) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { list.set_visible(false); }); };
  right_click();
  EXPECT_FALSE(w.did(L"favourite menu"));
}

TEST_F(FavouritesTest, NoMenuWhenTheProgramEnds) {
  show("lt:RADIO1/1\r\n");
  pointer.on_click = [&] { w.loop.at(0, [&] { w.loop.quit(); }); };
  right_click();
  EXPECT_FALSE(w.did(L"favourite menu"));
}

TEST_F(FavouritesTest, TheMenuOfNothingNamesNothing) {
  show("");
  list.set_visible(true);
  right_click();
  EXPECT_EQ(w.journal, (Journal{L"caption Naladit rádio ", L"favourite menu"}));
}

// Removing.

TEST_F(FavouritesTest, RemovingTakesTheLineOutAndTells) {
  show("lt:RADIO1/1\r\nlt:radio2/2\r\n");
  std::size_t listed = 99;
  w.dialogs.while_open = [&] { listed = list.count(); };
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:radio2/2\r\n");
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, L"Rádio bylo ostraněno z oblíbených.");
  EXPECT_EQ(w.dialogs.shown[0].title, platform::Dialogs::default_title);
  EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_EQ(w.dialogs.shown[0].buttons, platform::BoxButtons::ok);
  EXPECT_EQ(listed, 1U) << "the list is right before the box is shown";
}

TEST_F(FavouritesTest, RemovingWhatIsNotThereRewritesWithoutAWord) {
  show("\r\nlt:RADIO1/1\r\n\r\npozn\xe1mka\r\n\r\n");
  w.journal.clear();
  favourites.DeleteFromOblibene(L"lt:RADIO9/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/1\r\npozn\xe1mka\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(FavouritesTest, RemovingTheLastOneShowsTheHint) {
  show("lt:RADIO1/1\r\n");
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "\r\n");
  EXPECT_TRUE(w.form.InfoNaladit.visible());
}

TEST_F(FavouritesTest, AFileThatCannotBeReadOrWrittenKeepsItsFavourites) {
  show("lt:RADIO1/1\r\n");
  w.files.make_unreadable(w.path(L"list.tt"));
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  w.files.mend(w.path(L"list.tt"));
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
  EXPECT_TRUE(w.dialogs.shown.empty()) << "nothing was removed, nothing is said";
}

TEST_F(FavouritesTest, RemovingFromNoFileMakesNone) {
  favourites.DeleteFromOblibene(L"lt:RADIO1/1");
  EXPECT_FALSE(w.files.exists(w.path(L"list.tt")));
  EXPECT_TRUE(w.dialogs.shown.empty());
}

} // namespace
} // namespace lumotune::test
