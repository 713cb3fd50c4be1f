// SPDX-License-Identifier: LGPL-2.1-or-later
// Every item of every menu does its work, chosen in the menu as the user does it; those that change what plays or a
// setting are tested beside.
#include "base/boxes.h"
#include "tests/menus/menu_world.h"

#include <gtest/gtest.h>

#include <set>

namespace lumotune::test {
namespace {

using platform::BoxButtons;
using platform::BoxIcon;
using platform::MenuItem;
using platform::ShowWindow;

const std::wstring not_ready = L"Nejprve použujte funkci Naladit rádio.\r\n(program ještě není úplně zaveden...)";
const std::wstring no_station =
    L"Pokud máte potíže s poslechem nějaké rádiové stanice, tak se přepněte do seznamu všech stanic.\r\n"
    L"Vyberte stanici, s kterou máte potíže a klikněte na položku v menu: 'Mám potíže s poslechem tohoto rádia'";

struct MenuCommandsTest : testing::Test {
  MenuWorld w;
  void expect_start(const std::wstring& command_line, const std::wstring& program, ShowWindow show) {
    ASSERT_EQ(w.shell.started.size(), 1U) << testing::PrintToString(command_line);
    EXPECT_EQ(w.shell.started[0].command_line, command_line);
    EXPECT_EQ(w.shell.started[0].application, program.empty() ? L"" : L"C:\\Orb\\" + program);
    EXPECT_EQ(w.shell.started[0].show, show);
    EXPECT_TRUE(w.dialogs.shown.empty());
    w.shell.started.clear();
  }
  // The check value in the form of the login address.
  [[nodiscard]] std::wstring scrambled() { return w.identity.Heslo(L"HHH"); }
  void expect_box(const std::wstring& text) {
    ASSERT_EQ(w.dialogs.shown.size(), 1U);
    EXPECT_EQ(w.dialogs.shown[0].text, text);
    EXPECT_EQ(w.dialogs.shown[0].title, base::box_title);
    EXPECT_EQ(w.dialogs.shown[0].icon, BoxIcon::information);
    EXPECT_EQ(w.dialogs.shown[0].buttons, BoxButtons::ok);
    EXPECT_TRUE(w.shell.started.empty() && w.shell.opened.empty());
    w.dialogs.shown.clear();
  }
};

const std::wstring discussion_start =
    L"C:\\Orb\\OrbBrowser.exe http://server.example\\orb\\diskuze.php?idh=IDH&h=HHH&t=100000&tid=RADIO1"
    L"/@/9000/@/9000/@/Diskuze k rádiové stanici: ";
const std::wstring discussion_end = L" (Orb)/@/normal/@/endtestnull/@/";

TEST_F(MenuCommandsTest, TheTraysPlayItemPressesTheButtonAndAsksForTheKeyboard) {
  w.use(L"LT_TrayMenu_Play");
  EXPECT_EQ(w.player.calls, std::vector<std::wstring>{L"play"});
  EXPECT_EQ(w.form.PlayTL.text(), L"Stop");
  EXPECT_EQ(w.window.activated, 1);
  EXPECT_EQ(w.window.redrawn, 1);
  EXPECT_FALSE(w.window.visible()) << "a hidden window stays hidden";
  w.use(L"LT_TrayMenu_Play");
  EXPECT_EQ(w.player.calls.back(), L"stop");
}

TEST_F(MenuCommandsTest, ItemsThatGoToOtherRooms) {
  for (const wchar_t* item : {L"LT_TrayMenu_RadioList", L"LT_MenuPlRariaSat"}) {
    w.use(item);
    EXPECT_TRUE(w.directory.open());
    w.framed_windows.last->user_close();
    EXPECT_FALSE(w.directory.open());
  }
  w.use(L"LT_Menu_Nastaveni_LTCC");
  EXPECT_EQ(w.input_box.asked.size(), 1U);
  w.use(L"LT_TrayMenu_Konec");
  EXPECT_TRUE(w.loop.quitting());
}

TEST_F(MenuCommandsTest, TheFreeMusicPage) {
  for (const wchar_t* item : {L"LT_TrayMenu_Melodeon", L"LT_Menu_OM"}) {
    w.use(item);
    expect_start(L"C:\\Orb\\OrbBrowser.exe http://server.example\\orb\\melodeon.php?idh=IDH&h=HHH"
                 L"/@/14000/@/8000/@/Orb Melodeon (Orb)/@/max/@/endtestnull/@/",
                 L"OrbBrowser.exe", ShowWindow::minimized_focus);
  }
}

TEST_F(MenuCommandsTest, TheDiscussion) {
  for (const wchar_t* item : {L"LT_Menu_Disk", L"LT_MenuPlRaria_Disk"}) {
    w.use(item);
    expect_start(discussion_start + L"Hraje" + discussion_end, L"OrbBrowser.exe", ShowWindow::minimized_focus);
  }
  w.use(L"LT_MenuRadia_Disk");
  expect_start(discussion_start + L"První" + discussion_end, L"OrbBrowser.exe", ShowWindow::minimized_focus);
}

TEST_F(MenuCommandsTest, AddingAStationAndTheRecorder) {
  w.use(L"LT_Menu_LTadd");
  expect_start(L"C:\\Orb\\OrbBrowser.exe http://server.example/lumotune.brelt/user_lt_add.php?idh=IDH&h=HHH"
               L"/@/9000/@/9000/@/Přidat nové rádio (Orb)/@/normal/@/endtestnull/@/",
               L"OrbBrowser.exe", ShowWindow::minimized_focus);
  w.use(L"LT_Menu_Mp3rec");
  expect_start(L"C:\\Orb\\OrbRecorder.exe Hraje", L"OrbRecorder.exe", ShowWindow::normal_focus);
  w.session.station_name = L"Moje \"milé\" rádio";
  w.items.Control_Rec_Click();
  expect_start(L"C:\\Orb\\OrbRecorder.exe Moje 'milé' rádio", L"OrbRecorder.exe", ShowWindow::normal_focus);
  w.use(L"LT_Menu_library");
  expect_start(L"C:\\Orb\\OrbRecorder.exe l", L"OrbRecorder.exe", ShowWindow::normal_focus);
}

TEST_F(MenuCommandsTest, TheReportOfAProblem) {
  const std::wstring report = L"remind.exe RadioOFF/@/RADIO1/@/První/@/IDH/@/HHH/@/http://server.example";
  for (const wchar_t* item : {L"LT_Menu_Potize", L"LT_MenuPlRaria_Err", L"LT_MenuRadia_Potize"}) {
    w.settings.server_address.clear();
    w.use(item);
    expect_start(report, L"", ShowWindow::normal_focus);
  }
}

TEST_F(MenuCommandsTest, AProblemWithNoStationIsExplained) {
  for (const wchar_t* station : {L"", L"NENI00"}) {
    w.settings.IDlastRadio = station;
    w.use(L"LT_Menu_Potize");
    expect_box(no_station);
    w.use(L"LT_MenuPlRaria_Err");
    expect_box(no_station);
  }
  w.use(L"LT_MenuRadia_Potize");
  expect_start(L"remind.exe RadioOFF/@/NENI00/@//@/IDH/@/HHH/@/http://server.example", L"", ShowWindow::normal_focus);
}

TEST_F(MenuCommandsTest, PagesWaitForTheServersAddress) {
  w.no_server();
  for (const wchar_t* item : {L"LT_Menu_Orbcz", L"LT_Menu_Disk", L"LT_MenuPlRaria_Disk", L"LT_MenuRadia_Disk",
                              L"LT_Menu_LTadd", L"LT_TrayMenu_Melodeon", L"LT_Menu_OM"}) {
    w.use(item);
    expect_box(not_ready);
  }
}

TEST_F(MenuCommandsTest, AnAddressInTheFileIsReadAnew) {
  w.settings.server_address = L"http://old.example";
  w.use(L"LT_Menu_FAQ");
  EXPECT_EQ(w.command_line(), L"explorer http://server.example/faq");
  w.no_server();
  w.use(L"LT_Menu_OM");
  EXPECT_NE(w.command_line().find(L"http://server.example\\orb\\melodeon"), std::wstring::npos)
      << "a file that is gone leaves the address as it was";
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(MenuCommandsTest, TheSitesLogin) {
  w.use(L"LT_Menu_Orbcz");
  expect_start(L"explorer http://server.example/login/IDH/" + scrambled() + L"//1", L"", ShowWindow::minimized_focus);
  w.settings.server_address.clear();
  w.items.Orbwww_Click();
  expect_start(L"explorer http://server.example/login/IDH/" + scrambled() + L"//1", L"", ShowWindow::minimized_focus);
}

TEST_F(MenuCommandsTest, TheLogoAndTheHelpHaveNoGuard) {
  w.no_server();
  w.items.Orbwww_Click();
  w.use(L"LT_Menu_FAQ");
  EXPECT_EQ(w.shell.opened, (std::vector<std::wstring>{L"\"/login/IDH/" + scrambled() + L"//1\"", L"\"/faq\""}));
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(MenuCommandsTest, TheLoginIsOfTheMomentAndStopsWithTheProgram) {
  w.loop.at(0, [this] { w.settings.idh = L"NEW"; });
  w.use(L"LT_Menu_Orbcz");
  expect_start(L"explorer http://server.example/login/NEW/" + scrambled() + L"//1", L"", ShowWindow::minimized_focus);
  w.popups.after_choice = [this] { w.loop.at(0, [this] { w.loop.quit(); }); }; // while the token is made
  w.use(L"LT_Menu_Orbcz");
  EXPECT_TRUE(w.loop.quitting());
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(MenuCommandsTest, ListenersAreAskedForAtTheClient) {
  int asked = 0;
  for (const wchar_t* item : {L"LT_Menu_ShowUsers", L"LT_MenuRadia_ZobrazUzivatele", L"LT_MenuPlRaria_Users"}) {
    w.use(item);
    ASSERT_EQ(w.messages.sent.size(), static_cast<std::size_t>(++asked));
    EXPECT_EQ(w.messages.sent.back().bytes, "lts:RADIO1");
    EXPECT_EQ(w.messages.sent.back().target, platform::WindowRef{77});
  }
  EXPECT_TRUE(w.shell.started.empty());
}

TEST_F(MenuCommandsTest, AMissingClientIsStartedUntilItIsThere) {
  w.messages.remove_window(L"Orb - Lumotune");
  w.loop.at(2000, [this] { w.messages.add_window(L"Orb - Lumotune", platform::WindowRef{5}); });
  w.loop.at(1000, [this] { w.use(L"LT_MenuPlRaria_Users"); });
  w.use(L"LT_Menu_ShowUsers");
  EXPECT_EQ(w.messages.sent.size(), 1U) << "a second wish meanwhile is dropped";
  ASSERT_GE(w.shell.started.size(), 1U);
  EXPECT_EQ(w.shell.started[0].command_line, L"orb.exe");
}

TEST_F(MenuCommandsTest, TheStationsWebPage) {
  w.put(L"radios.tt", "RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/www.a.example\r\n");
  w.use(L"LT_MenuPlRaria_www");
  EXPECT_EQ(w.shell.opened, std::vector<std::wstring>{L"\"www.a.example\""});
  w.put(L"radios.tt", "RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/http://a.example/b&c\r\n");
  w.use(L"LT_MenuPlRaria_www");
  EXPECT_EQ(w.command_line(), L"explorer http://a.example/b&c");
}

TEST_F(MenuCommandsTest, AStationsWebPageThatIsNoneIsNotOpened) {
  for (const char* address : {"Telvix.exe", "C:\\Windows\\system32\\calc.exe", "\\\\server\\share\\x", "file://C:/x",
                              "http://a.example\" \"b", "javascript:alert(1)"}) {
    w.put(L"radios.tt", "RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/" + std::string(address));
    w.use(L"LT_MenuPlRaria_www");
    EXPECT_TRUE(w.shown(L"LT_MenuPlRaria_www").enabled);
    EXPECT_TRUE(w.shell.started.empty() && w.shell.opened.empty()) << address;
  }
}

TEST_F(MenuCommandsTest, ARefusedAddressIsTold) {
  auto& line = *w.window.label(L"InfoStatus");
  line.resize(3000, 200);
  const std::vector<std::wstring> told = {L"Tuto adresu nelze otevřít, není to webová stránka."};
  w.put(L"radios.tt", "RADIO1/@/P/@/t/@/x/@/z/@/k/@/1/@/2/@/3/@/4/@/5/@/1/@/2/@/3/@/4/@/5/@/-");
  w.use(L"LT_MenuPlRaria_www");
  EXPECT_TRUE(w.shell.started.empty() && w.shell.opened.empty());
  EXPECT_EQ(line.announced, told);
  EXPECT_EQ(line.text(), told.front());
  line.announced.clear();
  w.settings.idh = L"a\"b";
  w.use(L"LT_Menu_Orbcz");
  EXPECT_TRUE(w.shell.started.empty());
  EXPECT_EQ(line.announced, told);
  line.announced.clear();
  w.settings.idh = L"a,b:c";
  w.use(L"LT_Menu_Orbcz");
  w.use(L"LT_Menu_FAQ");
  EXPECT_EQ(w.shell.started.size(), 2U);
  EXPECT_TRUE(line.announced.empty());
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(MenuCommandsTest, WithoutAStatusLineARefusedAddressIsToldByABox) {
  auto& line = *w.window.label(L"InfoStatus");
  w.settings.idh = L"a\"b";
  const auto expect_box = [&](const char* why) {
    w.dialogs.shown.clear();
    w.use(L"LT_Menu_Orbcz");
    ASSERT_EQ(w.dialogs.shown.size(), 1U) << why;
    EXPECT_EQ(w.dialogs.shown[0].text, L"Tuto adresu nelze otevřít, není to webová stránka.") << why;
    EXPECT_EQ(w.dialogs.shown[0].icon, platform::BoxIcon::information) << why;
    EXPECT_TRUE(line.announced.empty()) << why;
  };
  line.resize(3000, 200);
  line.set_visible(false);
  expect_box("stopped");
  line.set_visible(true);
  line.resize(3000, 0);
  expect_box("no height");
  line.resize(0, 200);
  expect_box("no width");
  EXPECT_TRUE(w.shell.started.empty() && w.shell.opened.empty());
}

// What an item did can be seen in one of these.
std::size_t traces(const MenuWorld& w) {
  return w.shell.started.size() + w.shell.opened.size() + w.messages.sent.size() + w.player.calls.size() +
         w.files.changes().size() + w.input_box.asked.size() + static_cast<std::size_t>(w.framed_windows.made) +
         (w.loop.quitting() ? 1U : 0U) + (w.settings.LTTop == L"1" ? 1U : 0U) +
         (w.settings.LTautoStart == L"1" ? 1U : 0U);
}

void items_of(const std::vector<MenuItem>& items, std::set<std::wstring>& names) {
  for (const MenuItem& item : items) {
    if (item.children.empty() && !item.separator)
      names.insert(item.name);
    items_of(item.children, names);
  }
}

TEST_F(MenuCommandsTest, NoItemIsWithoutWork) {
  std::set<std::wstring> names;
  w.real_menus.open_main(); // for the skins
  items_of(w.shown(), names);
  items_of(menus::MenuTree().all(), names);
  for (const wchar_t* name : {L"LTmenus", L"LT_Menu_Skins_SKIN"}) // a name only; its elements are chosen in its place
    EXPECT_EQ(names.erase(name), 1U);
  EXPECT_EQ(names.size(), 38U);
  for (const std::wstring& name : names) {
    MenuWorld fresh;
    fresh.session.favourite_line = L"lt:RADIO1/1";
    fresh.put(L"list.tt", "lt:RADIO1/1\r\n");
    const std::size_t before = traces(fresh);
    fresh.use(name);
    EXPECT_GT(traces(fresh), before) << testing::PrintToString(name);
  }
}

TEST_F(MenuCommandsTest, AnUnknownItemDoesNothing) {
  for (const wchar_t* name : {L"", L"LT_Menu", L"LTmenus", L"LT_Menu_delicicara", L"(0)", L"LT_Menu_Disk2"})
    EXPECT_FALSE(menus::MenuTree().chosen(name)) << testing::PrintToString(std::wstring(name));
}

} // namespace
} // namespace lumotune::test
