// SPDX-License-Identifier: LGPL-2.1-or-later
// What the directory window does with a station: details, qualities, tuning, favourites, companions.
#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

namespace lumotune::directory {
namespace {

using platform::MouseButton;
using platform::memory::find_item;
using Lines = std::vector<std::wstring>;

struct ListRadiosDetails : testing::Test, test::DirectoryWorld {
  ListRadiosDetails() { directory.Naladit(); }
  void choose(const wchar_t* item) { popups.choices = {item}; }
  [[nodiscard]] std::wstring last_start() const { return shell.started.back().command_line; }
};

TEST_F(ListRadiosDetails, AClickShowsTheStation) {
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_EQ(label(L"Label2").text(), L"První");
  EXPECT_EQ(label(L"Label3").text(), L"Česko");
  EXPECT_EQ(label(L"Label4").text(), L"www.prvni.example");
  EXPECT_EQ(part<platform::memory::MemoryTextBox>(L"Text1").text(), L"O prvním");
  EXPECT_TRUE(label(L"Label5").visible());
  (void)list().user_arrow(3);
  EXPECT_EQ(label(L"Label2").text(), L"Třetí");
  EXPECT_EQ(label(L"Label4").text(), L"");
}

TEST_F(ListRadiosDetails, TheLaterRecordOfTwoWins) {
  write(L"radios.tt",
        stations_text() + test::Record{"radio1", "Pozd\xecj\x9a\xed", "", "", "100001", {"http://r/x"}, {"32"}}.line());
  window_shown().user_close();
  loop.advance(200);
  directory.Naladit();
  ASSERT_EQ(list().count(), 4U) << "the second row is refused";
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_EQ(label(L"Label2").text(), L"Pozdější");
  choose(L"Kvalita1play");
  (void)label(L"Label7").user_click();
  EXPECT_EQ(player.url(), L"http://r/x");
}

TEST_F(ListRadiosDetails, ATelevisionStationHasNoChoiceOfQuality) {
  (void)list().user_pick(4, MouseButton::left);
  EXPECT_FALSE(label(L"Label5").visible());
  (void)list().user_pick(4, MouseButton::right);
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_FALSE(find_item(popups.opened[0].items, L"DostupnaKvalita")->visible);
  EXPECT_TRUE(find_item(popups.opened[0].items, L"NaladRadio")->visible);
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_TRUE(find_item(popups.opened[1].items, L"DostupnaKvalita")->visible);
}

TEST_F(ListRadiosDetails, ARightClickOpensTheStationsMenu) {
  (void)list().user_pick(1, MouseButton::right);
  ASSERT_EQ(popups.opened.size(), 1U);
  const auto& items = popups.opened[0].items;
  EXPECT_EQ(find_item(items, L"WebRadia")->caption, L"www.prvni.example");
  EXPECT_TRUE(find_item(items, L"WebRadia")->enabled);
  EXPECT_EQ(find_item(items, L"DostupnaKvalita")->caption, L"Přidat rádio do rychlého seznamu");
  EXPECT_EQ(find_item(items, L"NaladRadio")->caption, L"Naladit rádio");
  EXPECT_EQ(find_item(items, L"Kvalita1")->caption, L"128 kbps");
  EXPECT_EQ(find_item(items, L"Kvalita1play")->caption, L"128 kbps");
  EXPECT_FALSE(find_item(items, L"Kvalita2")->visible || find_item(items, L"Kvalita2play")->visible);
  EXPECT_TRUE(find_item(items, L"Kvalita3")->visible && find_item(items, L"Kvalita3play")->visible);
  EXPECT_EQ(find_item(items, L"KvalitaInfo")->caption, L"Informace");
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_FALSE(label(name).visible()) << name;
  (void)list().user_pick(2, MouseButton::right);
  EXPECT_EQ(find_item(popups.opened[1].items, L"WebRadia")->caption, L"Web rádia");
  EXPECT_FALSE(find_item(popups.opened[1].items, L"WebRadia")->enabled);
  (void)list().user_pick(2, MouseButton::left);
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_TRUE(label(name).visible()) << name;
}

TEST_F(ListRadiosDetails, TheMenuKeyOpensTheSameMenu) {
  (void)list().user_arrow(1);
  EXPECT_TRUE(list().user_menu_key());
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(popups.opened[0].anchor, &list());
  EXPECT_EQ(find_item(popups.opened[0].items, L"WebRadia")->caption, L"www.prvni.example");
}

TEST_F(ListRadiosDetails, AnotherButtonOnlyMovesTheSelection) {
  (void)list().user_pick(3, MouseButton::middle);
  EXPECT_TRUE(popups.opened.empty());
  EXPECT_EQ(label(L"Label2").text(), L"Druhé");
}

TEST_F(ListRadiosDetails, PlaysAChosenQuality) {
  (void)list().user_pick(1, MouseButton::left);
  choose(L"Kvalita3play");
  (void)label(L"Label7").user_click();
  EXPECT_EQ(player.url(), L"http://r/1c");
  EXPECT_EQ(settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(settings.KvalitaLT, L"3");
  EXPECT_EQ(form.PlayTL.text(), L"Stop");
  EXPECT_EQ(window.activated, 1);
}

TEST_F(ListRadiosDetails, OneQualityIsPlayedAtOnceSeveralAreOffered) {
  (void)list().user_double_pick(2);
  EXPECT_TRUE(popups.opened.empty());
  EXPECT_EQ(player.url(), L"http://r/2");
  choose(L"Kvalita1play");
  (void)list().user_arrow(1);
  (void)list().user_type(13);
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(popups.opened[0].anchor, &list());
  EXPECT_EQ(player.url(), L"http://r/1a");
  (void)list().user_type(L'x');
  EXPECT_EQ(popups.opened.size(), 1U);
}

TEST_F(ListRadiosDetails, AStationWithoutQualitySaysSo) {
  write(L"radios.tt", test::Record{"TICHO1", "Ticho"}.line());
  window_shown().user_close();
  loop.advance(200);
  directory.Naladit();
  (void)list().user_double_pick(1);
  EXPECT_TRUE(popups.opened.empty());
  EXPECT_EQ(status(), L"Toto rádio nemá žádnou kvalitu k poslechu.");
  (void)list().user_pick(1, MouseButton::right);
  for (int n = 1; n <= 5; ++n) {
    EXPECT_FALSE(find_item(popups.opened[0].items, L"Kvalita" + std::to_wstring(n))->visible);
    EXPECT_FALSE(find_item(popups.opened[0].items, L"Kvalita" + std::to_wstring(n) + L"play")->visible);
  }
}

TEST_F(ListRadiosDetails, TelevisionGoesToItsOwnPlayer) {
  (void)list().user_pick(4, MouseButton::left);
  choose(L"Kvalita2play");
  (void)label(L"Label7").user_click();
  EXPECT_EQ(last_start(), machine.folder + L"\\Telvix.exe http://t/2");
  EXPECT_EQ(shell.started.back().show, platform::ShowWindow::normal_focus);
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2");
  EXPECT_EQ(settings.KvalitaLT, L"1");
  EXPECT_EQ(player.url(), L"");
  EXPECT_EQ(window.activated, 0);
}

TEST_F(ListRadiosDetails, AddsToTheFavourites) {
  (void)list().user_pick(1, MouseButton::left);
  choose(L"Kvalita3");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\n");
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Rádio bylo přidáno k oblíbeným.\r\nMělo by se zobrazit v seznanu Lumotune.");
  choose(L"Kvalita3");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(dialogs.shown.back().text, L"Rádio se v oblíbených již nachází.");
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\n");
  choose(L"Kvalita1");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(form.Control_List.count(), 2U) << "the main window shows them";
}

TEST_F(ListRadiosDetails, AFavouriteThatCannotBeWrittenIsNotAnnounced) {
  files.make_readonly(machine.folder + L"\\list.tt");
  (void)list().user_pick(1, MouseButton::left);
  choose(L"Kvalita1");
  (void)label(L"Label5").user_click();
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ListRadiosDetails, GivesAdviceOnQuality) {
  (void)list().user_pick(1, MouseButton::left);
  choose(L"KvalitaInfo");
  (void)label(L"Label5").user_click();
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_EQ(dialogs.shown[0].text.find(L"Zvolte kvalitu úměrnou k rychlosti vašeho připojení k intenetu.\r\nČím je"),
            0U);
}

TEST_F(ListRadiosDetails, OpensTheDiscussion) {
  (void)list().user_pick(3, MouseButton::left);
  (void)label(L"Label10").user_click();
  const std::wstring head = machine.folder + L"\\OrbBrowser.exe http://server\\orb\\diskuze.php?idh=idhhodnota&h=tajne"
                                             L"&t=100000&tid=RADIO3/@/9000/@/9000/@/Diskuze k rádiové stanici: ";
  const std::wstring tail = L" (Orb)/@/normal/@/endtestnull/@/";
  EXPECT_EQ(last_start(), head + L"Třetí novinka" + tail) << "the row's text";
  choose(L"Diskuze");
  (void)list().user_pick(3, MouseButton::right);
  EXPECT_EQ(last_start(), head + L"Třetí" + tail) << "the record's name";
}

TEST_F(ListRadiosDetails, ReportsTrouble) {
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label6").user_click();
  EXPECT_EQ(last_start(), L"remind.exe RadioOFF/@/RADIO1/@/První/@/idhhodnota/@/tajne/@/http://server");
  choose(L"Potize");
  (void)list().user_pick(2, MouseButton::right);
  EXPECT_EQ(last_start(), L"remind.exe RadioOFF/@/RADIO2/@/Druhé/@/idhhodnota/@/tajne/@/http://server");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ListRadiosDetails, NothingSelectedIsSaid) {
  list().select(0);
  const auto started = shell.started.size();
  (void)label(L"Label6").user_click();
  (void)label(L"Label9").user_click();
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.shown[0].text, L"Vyberte prosím rádio, s jehož poslechem máte potíže.");
  EXPECT_EQ(dialogs.shown[1].text, L"Vyberte prosím rádio, jehož posluchače chcete zobrazit.");
  EXPECT_EQ(dialogs.shown[1].icon, platform::BoxIcon::information);
  EXPECT_EQ(shell.started.size(), started);
  EXPECT_TRUE(messages.sent.empty());
}

TEST_F(ListRadiosDetails, ShowsListeners) {
  messages.add_window(L"Orb - Lumotune", static_cast<platform::WindowRef>(7));
  (void)list().user_pick(3, MouseButton::left);
  settings.nickname.clear();
  (void)label(L"Label9").user_click();
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent.back().bytes, "lts:RADIO3");
  EXPECT_EQ(settings.nickname, L"Přezdívka");
  choose(L"ShowUsers");
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_EQ(messages.sent.back().bytes, "lts:RADIO1");
}

TEST_F(ListRadiosDetails, OpensWebPages) {
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label4").user_click();
  choose(L"WebRadia");
  (void)list().user_pick(1, MouseButton::right);
  (void)part<platform::memory::MemoryPicture>(L"Image3").user_click();
  EXPECT_EQ(web.opened, (Lines{L"station www.prvni.example", L"station www.prvni.example",
                               L"http://server/login/idhhodnota/" + identity.Heslo(L"tajne") + L"//1"}));
}

TEST_F(ListRadiosDetails, EveryTuningAsksForTheAdvertisementAnew) {
  auto& browser = part<platform::memory::MemoryBrowser>(L"WebBrowser1");
  (void)list().user_double_pick(2);
  EXPECT_TRUE(browser.visited.empty());
  shell.on_start = [this](const platform::memory::MemoryShell::Started& started) {
    const std::string seznam = "orb:r:0/@/0/@/0/@/http://server/reklama\r\n" + stations_text();
    if (started.command_line.find(L"size=1") != std::wstring::npos)
      write(L"orb_test_size.tt", "size:" + std::to_string(seznam.size()) + "\r\n");
    else if (started.command_line.find(L"lt_list.php") != std::wstring::npos)
      write(L"seznam.tt", seznam);
  };
  part<platform::memory::MemoryButton>(L"Command1").press();
  loop.advance(500);
  EXPECT_EQ(browser.visited.size(), 1U);
  (void)list().user_double_pick(2);
  EXPECT_EQ(browser.visited.size(), 2U);
}

} // namespace
} // namespace lumotune::directory
