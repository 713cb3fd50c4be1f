// SPDX-License-Identifier: LGPL-2.1-or-later
// What a listener does with a station of the directory besides playing it: favourites, companions, pages.
#include "base/boxes.h"
#include "tests/support/directory_world.h"

#include "player/client_link.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace lumotune::directory {
namespace {

using platform::MouseButton;
using Lines = std::vector<std::wstring>;

struct ListRadiosActions : testing::Test, test::DirectoryWorld {
  ListRadiosActions() { directory.Naladit(); }
  void choose(const wchar_t* item) { popups.choices = {item}; }
  [[nodiscard]] std::wstring last_start() const { return shell.started.back().command_line; }
  void expect_box(const std::wstring& text) {
    ASSERT_FALSE(dialogs.shown.empty());
    EXPECT_EQ(dialogs.shown.back().text, text);
    EXPECT_EQ(dialogs.shown.back().title, base::box_title);
    EXPECT_EQ(dialogs.shown.back().icon, platform::BoxIcon::information);
    EXPECT_EQ(dialogs.shown.back().buttons, platform::BoxButtons::ok);
  }
};

TEST_F(ListRadiosActions, AddsToTheFavourites) {
  (void)list().user_pick(1, MouseButton::left);
  choose(L"Kvalita3");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\n");
  EXPECT_EQ(dialogs.shown.size(), 1U);
  expect_box(L"Rádio bylo přidáno k oblíbeným.\r\nMělo by se zobrazit v seznanu Lumotune.");
  choose(L"Kvalita3");
  (void)label(L"Label5").user_click();
  expect_box(L"Rádio se v oblíbených již nachází.");
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\n");
  choose(L"Kvalita1");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/3\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(form.Control_List.count(), 2U) << "the main window shows them";
}

TEST_F(ListRadiosActions, AFavouriteThatCannotBeWrittenIsTold) {
  files.make_readonly(machine.folder + L"\\list.tt");
  (void)list().user_pick(1, MouseButton::left);
  choose(L"Kvalita1");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  expect_box(L"Oblíbené se nepodařilo uložit.\r\nSoubor list.tt je jen pro čtení, používá ho jiný program, nebo je "
             L"plný disk.");
}

TEST_F(ListRadiosActions, GivesAdviceOnQuality) {
  (void)list().user_pick(1, MouseButton::left);
  choose(L"KvalitaInfo");
  (void)label(L"Label5").user_click();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  expect_box(L"Zvolte kvalitu úměrnou k rychlosti vašeho připojení k intenetu.\r\n"
             L"Čím je kvalita zvuku větší, tím je více náročná na rychlost vašeho připojení.\r\n"
             L"Pokud vyberete příliš vysokou kvalitu a jste připojení např. přes klasický modem, může se stát, že "
             L"přehrávání nebude plynulé!");
}

TEST_F(ListRadiosActions, OpensTheDiscussion) {
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

TEST_F(ListRadiosActions, ReportsTrouble) {
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label6").user_click();
  EXPECT_EQ(last_start(), L"remind.exe RadioOFF/@/RADIO1/@/První/@/idhhodnota/@/tajne/@/http://server");
  choose(L"Potize");
  (void)list().user_pick(2, MouseButton::right);
  EXPECT_EQ(last_start(), L"remind.exe RadioOFF/@/RADIO2/@/Druhé/@/idhhodnota/@/tajne/@/http://server");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ListRadiosActions, NothingSelectedIsSaid) {
  list().select(0);
  const auto started = shell.started.size();
  (void)label(L"Label6").user_click();
  expect_box(L"Vyberte prosím rádio, s jehož poslechem máte potíže.");
  (void)label(L"Label9").user_click();
  expect_box(L"Vyberte prosím rádio, jehož posluchače chcete zobrazit.");
  EXPECT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(shell.started.size(), started);
  EXPECT_TRUE(messages.sent.empty());
}

TEST_F(ListRadiosActions, ShowsListeners) {
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

TEST_F(ListRadiosActions, AMissingClientIsStartedAtEveryMissAndAskedOnce) {
  messages.remove_window(L"Orb - Lumotune");
  shell.started.clear();
  (void)list().user_pick(1, MouseButton::left);
  loop.at(700, [this] { (void)label(L"Label9").user_click(); });
  (void)label(L"Label9").user_click();
  ASSERT_EQ(shell.started.size(), 9U) << "a second wish meanwhile is dropped";
  EXPECT_EQ(shell.started[0].command_line, L"orb.exe ");
  EXPECT_EQ(shell.started[0].show, platform::ShowWindow::normal_focus);
  EXPECT_TRUE(messages.sent.empty());
  messages.add_window(L"Orb - Lumotune", static_cast<platform::WindowRef>(7));
  (void)label(L"Label9").user_click();
  EXPECT_EQ(messages.sent.size(), 1U) << "and the next one works again";
}

// From the main window, the directory or its information line: the client hears one wish at a time.
TEST_F(ListRadiosActions, WhileOneWindowAsksForListenersNoOtherOneDoes) {
  messages.remove_window(L"Orb - Lumotune");
  (void)files.replace(machine.folder + L"\\orb.exe", "x");
  AdvertState state;
  platform::memory::FramedWindow other{L"ListRadios", files};
  ListRadiosForm other_form{other};
  Layout layout{other_form};
  InfoPanelLine line{{other_form, layout, settings, loop, dialogs, shell, folder, sender, identity, pages}};
  line.ZobrazInfoPanel(L"0/@//@/1000/@/t/@//@/showusers/@/orb.exe||Orb - Lumotune||lts:RADIO1||2");
  (void)list().user_pick(1, MouseButton::left);
  const std::vector<std::function<void()>> wishes = {[&] { client_link.Control_ShowUser_Click(); },
                                                     [&] { (void)label(L"Label9").user_click(); },
                                                     [&] { line.InfoPanel_Click(); }};
  for (const auto& first : wishes) {
    for (const auto& second : wishes) {
      shell.started.clear();
      loop.at(700, second);
      first();
      EXPECT_EQ(shell.started.size(), 9U) << &first - wishes.data() << &second - wishes.data();
    }
  }
}

TEST_F(ListRadiosActions, TheActionsStartTheirProgramsForNoStationToo) {
  list().select(0);
  (void)label(L"Label10").user_click();
  EXPECT_NE(last_start().find(L"&tid=/@/9000/@/9000/@/Diskuze k rádiové stanici:  (Orb)/@/"), std::wstring::npos);
  EXPECT_EQ(shell.started.back().application, machine.folder + L"\\OrbBrowser.exe");
  EXPECT_EQ(shell.started.back().show, platform::ShowWindow::minimized_focus);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ListRadiosActions, OpensWebPages) {
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label4").user_click();
  choose(L"WebRadia");
  (void)list().user_pick(1, MouseButton::right);
  (void)part<platform::memory::PictureBox>(L"Image3").user_click();
  EXPECT_EQ(test::opened_pages(shell), (Lines{L"http://server/login/idhhodnota/" + identity.Heslo(L"tajne") + L"//1",
                                              L"www.prvni.example", L"www.prvni.example"}));
}

TEST_F(ListRadiosActions, AStationWithoutAWebAddressHasNothingToOpen) {
  label(L"Label1").set_text(L"");
  for (const wchar_t* blank : {L"", L" ", L" \t "}) {
    label(L"Label4").set_text(blank);
    (void)label(L"Label4").user_click();
    EXPECT_TRUE(test::opened_pages(shell).empty());
    EXPECT_EQ(status(), L"");
  }
}

TEST_F(ListRadiosActions, ARefusedAddressIsToldInTheStatusLine) {
  const std::wstring told = L"Tuto adresu nelze otevřít, není to webová stránka.";
  write(L"radios.tt", test::Record{"RADIO1", "Soubor", "", "", "", {}, {}, "C:\\windows\\notepad.exe"}.line());
  write(L"Orb_Data\\orb_server.tt", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\nOrbServerAddr::file://server\r\n");
  open_again();
  (void)list().user_pick(1, MouseButton::left);
  std::size_t times = 0;
  const auto expect_told = [&] {
    EXPECT_EQ(status(), told);
    EXPECT_EQ(label(L"Label1").announced, Lines(++times, told));
    label(L"Label1").set_text(L"");
  };
  (void)label(L"Label4").user_click();
  expect_told();
  choose(L"WebRadia");
  (void)list().user_pick(1, MouseButton::right);
  expect_told();
  (void)part<platform::memory::PictureBox>(L"Image3").user_click();
  expect_told();
  EXPECT_TRUE(test::opened_pages(shell).empty());
  label(L"Label4").set_text(L"www.example");
  (void)label(L"Label4").user_click();
  EXPECT_EQ(status(), L"");
}

} // namespace
} // namespace lumotune::directory
