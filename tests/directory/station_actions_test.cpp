// SPDX-License-Identifier: LGPL-2.1-or-later
// The details and the actions by themselves: what no click in the window leads to, or what cannot be seen there.
#include "directory/actions.h"
#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

namespace lumotune::directory {
namespace {

struct StationActions : testing::Test, test::DirectoryWorld {
  platform::memory::FramedWindow bare{L"ListRadios", files};
  ListRadiosForm bare_form{bare};
  Layout layout{bare_form};
  AdvertState state;
  Advert advert{{bare_form, layout, state}};
  StationList stations_shown{{bare_form, station_files, codec, session, favourite_list}};
  Details details{{bare_form, stations_shown, form, settings, stations, playback, shell, folder, dialogs, advert}};
  Actions actions{{bare_form, stations_shown, details, identity, settings, favourite_list, sender, popups, loop, shell,
                   folder, dialogs, pages}};

  StationActions() { load(false); }
  void load(bool OnlyMemory) { stations_shown.NactiRadia(OnlyMemory); }
  void select(std::size_t row) { bare_form.ListView1.select(row); }
};

TEST_F(StationActions, TheSelectedStationsStateIsThatOfItsRecord) {
  select(1);
  details.MenuRadia();
  EXPECT_EQ(details.selected().id, L"RADIO1");
  EXPECT_EQ(details.selected().name, L"První");
  EXPECT_EQ(details.selected().web, L"www.prvni.example");
  const std::array<std::wstring, 5> addresses = {L"http://r/1a", L"", L"http://r/1c", L"", L""};
  EXPECT_EQ(details.selected().stream_addresses, addresses);
  select(0);
  details.MenuRadia();
  EXPECT_EQ(details.selected().id, L"RADIO1") << "kept without a row";
  select(2);
  details.MenuRadia();
  EXPECT_EQ(details.selected().stream_addresses[2], L"");
}

TEST_F(StationActions, AnAddressWithoutABitRateIsNotOffered) {
  write(L"radios.tt", test::Record{"RADIO1", "A", "", "", "", {"u1", "u2"}, {"", "64"}}.line());
  load(false);
  select(1);
  details.MenuRadia();
  EXPECT_FALSE(details.qualities()[0].visible);
  EXPECT_TRUE(details.qualities()[1].visible);
  EXPECT_EQ(details.selected().stream_addresses[0], L"");
  EXPECT_EQ(details.selected().stream_addresses[1], L"u2");
}

TEST_F(StationActions, TuningRefreshesTheState) {
  select(2);
  details.NaladitRadio(L"1");
  EXPECT_EQ(details.selected().id, L"RADIO2");
}

TEST_F(StationActions, AStationThatIsGoneLeavesThePanelAsItIs) {
  select(1);
  details.NactiInfoRadio();
  details.MenuRadia();
  write(L"radios.tt", test::Record{"JINE01", "Jiné"}.line());
  load(true); // the rows stay
  details.NactiInfoRadio();
  details.MenuRadia();
  EXPECT_EQ(bare_form.Label2.text(), L"První");
  EXPECT_EQ(details.selected().id, L"RADIO1");
  select(0);
  details.NactiInfoRadio();
  EXPECT_EQ(bare_form.Label2.text(), L"První");
}

TEST_F(StationActions, AnotherQualityIsSaidToBeAddedAndIsNotWritten) {
  select(1);
  for (const wchar_t* quality : {L"", L"0", L"6", L"12", L"x", L" 1"}) {
    actions.PridejRadioDoFAST(quality);
    EXPECT_EQ(content(L"list.tt"), "(missing)") << testing::PrintToString(std::wstring(quality));
    EXPECT_EQ(dialogs.shown.back().text.substr(0, 32), L"Rádio bylo přidáno k oblíbeným.\r");
  }
  EXPECT_EQ(dialogs.shown.size(), 6U);
}

// The station file ends with empty lines, as the conversion leaves it.
TEST_F(StationActions, AQualityMenuWithoutARowShowsTheStateAsItWasAndAddsNothing) {
  write(L"radios.tt", stations_text() + "\r\n\r\n");
  write(L"list.tt", "lt:RADIO2/1\r\n\r\n");
  load(false);
  select(1);
  actions.Label5_Click();
  select(0);
  popups.choices = {L"Kvalita3"};
  actions.Label5_Click();
  ASSERT_EQ(popups.opened.size(), 2U);
  for (const std::size_t opened : {0U, 1U}) {
    EXPECT_EQ(platform::memory::find_item(popups.opened[opened].items, L"Kvalita1")->caption, L"128 kbps");
    EXPECT_TRUE(platform::memory::find_item(popups.opened[opened].items, L"Kvalita3")->visible);
    EXPECT_FALSE(platform::memory::find_item(popups.opened[opened].items, L"Kvalita2")->visible);
  }
  EXPECT_EQ(details.selected().id, L"RADIO1");
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Vyberte prosím rádio, které chcete přidat k oblíbeným.");
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO2/1\r\n\r\n") << "as it was";
  popups.choices = {L"Kvalita3play"};
  actions.Label7_Click();
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2");
}

TEST_F(StationActions, ARowWithoutAnIdentifierShowsWhatItHas) {
  write(L"radios.tt", stations_text() +
                          test::Record{"", "Bez", "", "Polsko", "", {"http://b/1"}, {"48"}, "www.b", "Popis"}.line() +
                          "\r\n");
  load(false);
  select(5);
  details.NactiInfoRadio();
  EXPECT_EQ(bare_form.Label2.text(), L"Bez");
  EXPECT_EQ(bare_form.Label3.text(), L"Polsko");
  EXPECT_EQ(bare_form.Label4.text(), L"www.b");
  EXPECT_EQ(bare_form.Text1.text(), L"Popis");
  popups.choices = {L"Kvalita1"};
  actions.Label5_Click();
  EXPECT_EQ(platform::memory::find_item(popups.opened[0].items, L"Kvalita1")->caption, L"48 kbps");
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Toto rádio nelze přidat k oblíbeným.");
  EXPECT_EQ(content(L"list.tt"), "(missing)");
  popups.choices = {L"Kvalita1play"};
  actions.Label7_Click();
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2") << "what is tuned stays";
  EXPECT_EQ(bare_form.Label1.text(), L"Toto rádio nelze naladit.");
  bare_form.Label1.set_text(L"");
  actions.tune_row();
  EXPECT_EQ(bare_form.Label1.text(), L"Toto rádio nelze naladit.") << "nor by Enter or a double click";
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2");
  EXPECT_TRUE(player.url().empty());
}

TEST_F(StationActions, ANamelessStationIsNotReported) {
  write(L"radios.tt", test::Record{"BEZJM1", ""}.line());
  load(false);
  select(1);
  const auto started = shell.started.size();
  actions.Label6_Click();
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Vyberte prosím rádio, s jehož poslechem máte potíže.");
  EXPECT_EQ(shell.started.size(), started);
}

TEST_F(StationActions, TheLoginPageStopsWithTheProgram) {
  settings.h = L"abcdef";
  loop.at(0, [this] { loop.quit(); });
  actions.Image3_Click();
  EXPECT_TRUE(test::opened_pages(shell).empty());
}

TEST_F(StationActions, EnterWithoutARowDoesNothing) {
  bare_form.Label1.set_text(L"stav");
  actions.tune_row();
  EXPECT_TRUE(popups.opened.empty());
  EXPECT_EQ(bare_form.Label1.text(), L"stav");
}

TEST_F(StationActions, TheMenuToAddIsThatOfTheRow) {
  select(2);
  actions.Label5_Click();
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(platform::memory::find_item(popups.opened[0].items, L"Kvalita1")->caption, L"96 kbps");
  EXPECT_FALSE(platform::memory::find_item(popups.opened[0].items, L"Kvalita3")->visible);
}

TEST_F(StationActions, OneLinkIsUnderlinedAndOnlyTheWebAddressIsColoured) {
  const platform::Colour over{0xC00000};
  details.hover(bare_form.Label4);
  EXPECT_TRUE(bare_form.Label4.underline());
  EXPECT_EQ(bare_form.Label4.text_colour(), over);
  const platform::Colour before = bare_form.Label5.text_colour();
  details.hover(bare_form.Label5);
  EXPECT_TRUE(bare_form.Label5.underline());
  EXPECT_EQ(bare_form.Label5.text_colour(), before);
  EXPECT_FALSE(bare_form.Label4.underline());
  EXPECT_EQ(bare_form.Label4.text_colour(), platform::Colour{0});
}

} // namespace
} // namespace lumotune::directory
