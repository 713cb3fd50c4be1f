// SPDX-License-Identifier: LGPL-2.1-or-later
// What the directory window shows of a station: details, qualities and menus; and tuning it.
#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

namespace lumotune::directory {
namespace {

using platform::MouseButton;
using platform::memory::find_item;

struct ListRadiosDetails : testing::Test, test::DirectoryWorld {
  ListRadiosDetails() { directory.Naladit(); }
  void choose(const wchar_t* item) { popups.choices = {item}; }
  [[nodiscard]] std::wstring last_start() const { return shell.started.back().command_line; }
};

// One line an item: as deep as it stands, its name, its caption.
std::wstring drawn(const std::vector<platform::MenuItem>& items, const std::wstring& indent = L"") {
  std::wstring text;
  for (const platform::MenuItem& item : items) {
    text += indent + item.name + L" = " + item.caption + (item.visible ? L"" : L" (hidden)") +
            (item.enabled ? L"" : L" (disabled)") + (item.checked ? L" (checked)" : L"") + L"\n";
    text += drawn(item.children, indent + L"  ");
  }
  return text;
}

const wchar_t* const whole_menu = LR"(WebRadia = www.prvni.example
cara1 = -
NaladRadio = Naladit rádio
  Kvalita1play = 128 kbps
  Kvalita2play = K2 (hidden)
  Kvalita3play = 64 kbps
  Kvalita4play = K4 (hidden)
  Kvalita5play = K5 (hidden)
  caraa = -
DostupnaKvalita = Přidat rádio do rychlého seznamu
  Kvalita1 = 128 kbps
  Kvalita2 = K2 (hidden)
  Kvalita3 = 64 kbps
  Kvalita4 = K4 (hidden)
  Kvalita5 = K5 (hidden)
  cara = -
  KvalitaInfo = Informace
cara2 = -
ShowUsers = Zobrazit posluchače
Diskuze = Diskuze k rádiové stanici
Potize = Mám potíže s poslechem tohoto rádia
)";

TEST_F(ListRadiosDetails, AClickShowsTheStation) {
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_EQ(label(L"Label2").text(), L"První");
  EXPECT_EQ(label(L"Label3").text(), L"Česko");
  EXPECT_EQ(label(L"Label4").text(), L"www.prvni.example");
  EXPECT_EQ(part<platform::memory::TextBox>(L"Text1").text(), L"O prvním");
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
  EXPECT_EQ(player.origin(), platform::AddressOrigin::station);
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
  EXPECT_FALSE(part<platform::memory::TextBox>(L"Text1").visible());
  (void)list().user_pick(2, MouseButton::right);
  EXPECT_EQ(find_item(popups.opened[1].items, L"WebRadia")->caption, L"Web rádia");
  EXPECT_FALSE(find_item(popups.opened[1].items, L"WebRadia")->enabled);
  (void)list().user_pick(2, MouseButton::left);
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_TRUE(label(name).visible()) << name;
  EXPECT_TRUE(part<platform::memory::TextBox>(L"Text1").visible());
}

TEST_F(ListRadiosDetails, ANewOpeningShowsAllOfTheTunedStation) {
  (void)list().user_pick(4, MouseButton::right);
  settings.IDlastRadio = L"RADIO3";
  directory.Naladit();
  EXPECT_EQ(label(L"Label2").text(), L"Třetí");
  EXPECT_TRUE(part<platform::memory::TextBox>(L"Text1").visible());
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_TRUE(label(name).visible()) << name;
}

TEST_F(ListRadiosDetails, MenusAreAsDesigned) {
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_EQ(drawn(popups.opened.back().items), whole_menu);
  EXPECT_EQ(popups.opened.back().anchor, &list());
  const std::vector<platform::MenuItem> whole = popups.opened.back().items;
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label7").user_click();
  EXPECT_EQ(drawn(popups.opened.back().items), drawn(find_item(whole, L"NaladRadio")->children));
  EXPECT_EQ(popups.opened.back().anchor, &label(L"Label7"));
  (void)label(L"Label5").user_click();
  EXPECT_EQ(drawn(popups.opened.back().items), drawn(find_item(whole, L"DostupnaKvalita")->children));
  EXPECT_EQ(popups.opened.back().anchor, &label(L"Label5"));
}

TEST_F(ListRadiosDetails, EachQualityIsPlayedAndAddedByItsOwnItem) {
  write(L"radios.tt",
        test::Record{"VSECH5", "P\xect", "", "", "", {"u1", "u2", "u3", "u4", "u5"}, {"1", "2", "3", "4", "5"}}.line());
  window_shown().user_close();
  loop.advance(200);
  directory.Naladit();
  (void)list().user_pick(1, MouseButton::left);
  std::string lines;
  for (int n = 1; n <= 5; ++n) {
    const std::wstring number = std::to_wstring(n);
    popups.choices = {L"Kvalita" + number + L"play"};
    (void)label(L"Label7").user_click();
    EXPECT_EQ(find_item(popups.opened.back().items, L"Kvalita" + number + L"play")->caption, number + L" kbps");
    EXPECT_EQ(player.url(), L"u" + number);
    EXPECT_EQ(settings.KvalitaLT, number);
    popups.choices = {L"Kvalita" + number};
    (void)label(L"Label5").user_click();
    lines += "lt:VSECH5/" + std::to_string(n) + "\r\n";
    EXPECT_EQ(content(L"list.tt"), lines);
  }
}

TEST_F(ListRadiosDetails, WithoutARowWhatIsTunedStays) {
  (void)list().user_pick(1, MouseButton::left);
  (void)label(L"Label7").user_click();
  list().select(0);
  choose(L"Kvalita3play");
  (void)label(L"Label7").user_click();
  ASSERT_EQ(popups.opened.size(), 2U);
  EXPECT_EQ(find_item(popups.opened[1].items, L"Kvalita3play")->caption, L"64 kbps") << "of the station before";
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2");
  EXPECT_EQ(settings.KvalitaLT, L"1");
  EXPECT_TRUE(player.calls.empty() || player.calls.back() != L"play");
}

TEST_F(ListRadiosDetails, NothingIsDoneWhenTheProgramEndsInAMenu) {
  (void)list().user_pick(1, MouseButton::left);
  popups.while_open = [this] { loop.quit(); };
  const auto started = shell.started.size();
  choose(L"Potize");
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(shell.started.size(), started);
}

TEST_F(ListRadiosDetails, TheMenuKeyOpensTheSameMenu) {
  window_shown().user_tab(false);
  ASSERT_TRUE(list().user_arrow(1));
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

TEST_F(ListRadiosDetails, ATelevisionAddressThatIsNoStreamStartsNothing) {
  for (const char* address : {"", "C:\\Orb\\seznam.tt", "\\\\host\\share\\x", "file:///C:/x", "http://t/1 /switch",
                              "-x", "/x", "http://t/\"1\"", "javascript:1"}) {
    write(L"radios.tt", test::Record{"TELKA1", "Televize", "", "", "1000031", {address}, {"500"}}.line());
    window_shown().user_close();
    loop.advance(200);
    directory.Naladit();
    player.set_url(L"predtim", platform::AddressOrigin::listener);
    const auto started = shell.started.size();
    (void)list().user_pick(1, MouseButton::left);
    choose(L"Kvalita1play");
    (void)label(L"Label7").user_click();
    EXPECT_EQ(shell.started.size(), started) << address;
    EXPECT_EQ(player.url(), L"predtim") << "nor does it play here";
  }
}

TEST_F(ListRadiosDetails, TelevisionGoesToItsOwnPlayer) {
  (void)list().user_pick(4, MouseButton::left);
  choose(L"Kvalita2play");
  (void)label(L"Label7").user_click();
  EXPECT_EQ(last_start(), machine.folder + L"\\Telvix.exe http://t/2");
  EXPECT_EQ(shell.started.back().application, machine.folder + L"\\Telvix.exe");
  EXPECT_EQ(shell.started.back().show, platform::ShowWindow::normal_focus);
  EXPECT_EQ(settings.IDlastRadio, L"RADIO2");
  EXPECT_EQ(settings.KvalitaLT, L"1");
  EXPECT_EQ(player.url(), L"");
  EXPECT_EQ(window.activated, 0);
}

TEST_F(ListRadiosDetails, EveryTuningAsksForTheAdvertisementAnew) {
  auto& browser = part<platform::memory::Browser>(L"WebBrowser1");
  (void)list().user_double_pick(2);
  EXPECT_TRUE(browser.visited.empty());
  shell.on_start = [this](const platform::memory::Shell::Started& started) {
    const std::string seznam = "orb:r:0/@/0/@/0/@/http://server/reklama\r\n" + stations_text();
    if (started.command_line.find(L"size=1") != std::wstring::npos)
      write(L"orb_test_size.tt", "size:" + std::to_string(seznam.size()) + "\r\n");
    else if (started.command_line.find(L"lt_list.php") != std::wstring::npos)
      write(L"seznam.tt", seznam);
  };
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(500);
  EXPECT_EQ(browser.visited.size(), 1U);
  (void)list().user_double_pick(2);
  EXPECT_EQ(browser.visited.size(), 2U);
  choose(L"Kvalita1play");
  (void)list().user_double_pick(4);
  EXPECT_EQ(browser.visited.size(), 3U) << "television too";
}

} // namespace
} // namespace lumotune::directory
