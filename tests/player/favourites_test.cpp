// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/player/favourites_world.h"

#include <array>

namespace lumotune::test {
namespace {

struct FavouritesTest : FavouritesWorld {};

TEST_F(FavouritesTest, AnEntryCarriesItsDataBehindTheShownColumns) {
  show("lt:RADIO1/2\r\n");
  ASSERT_EQ(list.count(), 1U);
  const std::wstring text = list.item(0);
  EXPECT_EQ(text, item(L"První  (128kbps)", L"2RADIO1u2a"));
  EXPECT_EQ(text.substr(93, 1), L"2") << "column 94";
  EXPECT_EQ(text.substr(94, 6), L"RADIO1") << "columns 95 to 100";
  EXPECT_EQ(text.substr(100), L"u2a") << "column 101 on";
}

TEST_F(FavouritesTest, AnEntryIsReadFromItsHundredthColumnOn) {
  const auto whole = player::read_favourite_item(item(L"x", L"2RADIO1"));
  ASSERT_TRUE(whole.has_value()) << "the address may be empty";
  EXPECT_EQ(whole->id, L"RADIO1");
  EXPECT_EQ(whole->quality, L"2");
  EXPECT_EQ(whole->address, L"");
  EXPECT_FALSE(player::read_favourite_item(item(L"x", L"2RADIO")).has_value());
  EXPECT_FALSE(player::read_favourite_item(L"").has_value());
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

TEST_F(FavouritesTest, HugeLinesAreTakenAndAHugeFileIsNone) {
  const std::string huge(300UL * 1024, 'x');
  w.put(L"radios.tt", huge + "\r\n" + PlayerWorld::record("RADIO1", huge, "u1a", huge) + huge);
  show(huge + "\r\nlt:RADIO1/2" + huge + "\r\nlt:" + huge);
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.item(0).substr(93, 7), L"2RADIO1");
  EXPECT_EQ(list.item(0).size(), 100 + huge.size());
  show(std::string(stations::max_favourite_bytes, '\n') + "lt:RADIO1/2\r\n");
  EXPECT_EQ(list.count(), 0U);
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

TEST_F(FavouritesTest, ALongListIsDrawnOnceNotForEachEntry) {
  std::string file;
  for (int i = 0; i < 500; ++i)
    file += "lt:RADIO1/1\r\nlt:radio2/1\r\n";
  const int before = list.drawn;
  show(file);
  EXPECT_EQ(list.count(), 1000U);
  EXPECT_EQ(list.drawn, before + 1);
}

// What is seen.

TEST_F(FavouritesTest, FavouritesTakeThePlaceOfTheStationLabels) {
  w.form.Control_List.set_visible(false);
  const std::array labels = {&w.form.InfoName, &w.form.InfoTime, &w.form.InfoStatus, &w.form.InfoNaladit};
  for (platform::Label* label : labels)
    label->set_visible(true);
  show("lt:RADIO1/1\r\n");
  EXPECT_TRUE(w.form.Control_List.visible());
  for (const platform::Label* label : labels)
    EXPECT_FALSE(label->visible());
}

TEST_F(FavouritesTest, WithoutFavouritesTheHintIsShown) {
  w.form.InfoNaladit.set_visible(false);
  w.form.LTDisplay.set_visible(false);
  w.form.Control_List.set_visible(true);
  for (platform::Label* label : {&w.form.InfoName, &w.form.InfoTime, &w.form.InfoStatus})
    label->set_visible(true);
  show("");
  EXPECT_TRUE(w.form.InfoNaladit.visible());
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_FALSE(w.form.InfoName.visible() || w.form.InfoTime.visible() || w.form.InfoStatus.visible());
  EXPECT_FALSE(w.form.LTDisplay.visible()) << "the skin does not ask for it";
}

TEST_F(FavouritesTest, TheDisplayStandsBehindAnEmptyListWhereTheSkinSaysSo) {
  w.session.skin.display_behind_empty_list = true;
  w.form.LTDisplay.set_visible(false);
  show("");
  EXPECT_TRUE(w.form.LTDisplay.visible());
  show("lt:RADIO1/1\r\n");
  EXPECT_FALSE(w.form.LTDisplay.visible()) << "it goes with the hint";
}

TEST_F(FavouritesTest, ADisplayThatIsShownAnywayStays) {
  w.session.skin.display = w.session.skin.display_while_stopped = true;
  w.session.skin.display_behind_empty_list = true;
  show("lt:RADIO1/1\r\n");
  EXPECT_TRUE(w.form.LTDisplay.visible());
}

TEST_F(FavouritesTest, ADisplayThatIsShownAtOtherTimesGoesWithTheHint) {
  w.session.skin.display_behind_empty_list = true;
  for (const auto& [shown, while_stopped] : {std::pair{true, false}, std::pair{false, true}}) {
    w.session.skin.display = shown;
    w.session.skin.display_while_stopped = while_stopped;
    w.form.LTDisplay.set_visible(true);
    show("lt:RADIO1/1\r\n");
    EXPECT_FALSE(w.form.LTDisplay.visible()) << shown << while_stopped;
  }
}

TEST_F(FavouritesTest, ADisplayThatIsNotTheEmptyListsStays) {
  w.session.skin.display = w.session.skin.display_while_stopped = true;
  show("");
  EXPECT_TRUE(w.form.LTDisplay.visible());
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

TEST_F(FavouritesTest, ASkinThatDoesNotShowTheListNeverShowsIt) {
  w.session.skin.list = false;
  show("lt:RADIO1/1\r\n");
  EXPECT_EQ(list.count(), 1U);
  EXPECT_FALSE(list.visible());
  EXPECT_FALSE(w.form.InfoName.visible());
  w.session.skin.list = true;
  show("lt:RADIO1/1\r\n");
  EXPECT_TRUE(list.visible());
}

} // namespace
} // namespace lumotune::test
