// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory window as a whole: opening, tree, list, update.
#include "tests/directory/window_world.h"

namespace lumotune::directory {
namespace {

using platform::MouseButton;

struct ListRadiosWindow : WindowWorld {};

TEST_F(ListRadiosWindow, OpensWithEverythingLoadedAndTheTunedStationSelected) {
  directory.Naladit();
  ASSERT_EQ(windows.made, 1);
  EXPECT_EQ(window_shown().name(), L"ListRadios");
  EXPECT_TRUE(window_shown().visible());
  EXPECT_EQ(window_shown().activated, 1);
  EXPECT_EQ(tree().count(), 6U);
  EXPECT_EQ(tree().node_text(tree().find(L"a1000011")), L"Praha");
  EXPECT_EQ(tree().parent(tree().find(L"a1000011")), tree().find(L"a100001"));
  EXPECT_EQ(names(), (Names{L"První", L"Druhé", L"Třetí novinka", L"Televize"}));
  EXPECT_EQ(list().cell(3, 1), L"Slovensko");
  EXPECT_TRUE(list().columns().size() == 2 && list().columns()[0].caption == L"Název rádia");
  EXPECT_EQ(list().columns()[0].key, L"Name");
  EXPECT_EQ(list().columns()[0].width, 2000);
  EXPECT_EQ(list().columns()[1].key, L"zeme");
  EXPECT_EQ(list().columns()[1].caption, L"Země");
  EXPECT_EQ(list().columns()[1].width, 800);
  EXPECT_EQ(list().selected(), 2U);
  EXPECT_EQ(label(L"Label2").text(), L"Druhé");
  EXPECT_EQ(status(), L"Připojování k databázi rádií...");
  ASSERT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(shell.started[0].command_line,
            L"load.exe http://server/lumotune.brelt/lt_list.php?size=1&idh=idhhodnota/@/" + machine.folder +
                L"\\orb_test_size.tt");
  EXPECT_EQ(shell.started[0].show, platform::ShowWindow::normal_no_focus);
}

TEST_F(ListRadiosWindow, ASecondCallShowsTheSameWindow) {
  directory.Naladit();
  window_shown().user_minimize();
  settings.IDlastRadio = L"radio1";
  directory.Naladit();
  EXPECT_EQ(windows.made, 1);
  EXPECT_FALSE(window_shown().minimized());
  EXPECT_EQ(list().selected(), 1U);
  EXPECT_EQ(shell.started.size(), 1U) << "the update of the opening only";
  settings.IDlastRadio = L"NIKDE1";
  directory.Naladit();
  EXPECT_EQ(list().selected(), 1U) << "a station that is not shown leaves the old position";
}

TEST_F(ListRadiosWindow, ASecondCopyOfTheProgramEnds) {
  machine.previous = true;
  directory.Naladit();
  EXPECT_TRUE(loop.quitting());
}

TEST_F(ListRadiosWindow, MissingFilesLeaveAnEmptyWindow) {
  for (const wchar_t* name : {L"radios.tt", L"kategories.tt", L"Orb_Data\\options.ini", L"Orb_Data\\orb_server.tt"})
    (void)files.remove(machine.folder + L"\\" + name);
  settings.server_address = L"http://drive";
  directory.Naladit();
  EXPECT_EQ(tree().count(), 0U);
  EXPECT_EQ(list().count(), 0U);
  EXPECT_EQ(settings.server_address, L"http://drive");
  EXPECT_NE(content(L"Orb_Data\\error.log").find(" Lumotune (LoadOptions) orb_server.tt"), std::string::npos);
  EXPECT_TRUE(window_shown().visible());
}

TEST_F(ListRadiosWindow, TheServersBackupTakesTheFilesPlace) {
  write(L"Orb_Data\\orb_server.tt", "torn\r\n");
  write(L"Orb_Data\\orb_server.tt.tmp", "good");
  directory.Naladit();
  EXPECT_EQ(content(L"Orb_Data\\orb_server.tt"), "good");
}

TEST_F(ListRadiosWindow, ShowsTheStationsOfACategory) {
  directory.Naladit();
  pick_node(L"a100001");
  EXPECT_EQ(names(), (Names{L"První", L"Druhé"}));
  EXPECT_EQ(status(), L"Zobrazeno 2 rádií");
  pick_node(L"a1000011");
  EXPECT_EQ(names(), Names{L"První"});
  pick_node(L"a100000");
  EXPECT_EQ(names().size(), 4U);
  EXPECT_EQ(status(), L"Zobrazeno 4 rádií");
  pick_node(L"a1000001");
  EXPECT_EQ(names(), (Names{L"První", L"Třetí novinka", L"Televize"})) << "whatever the top category";
  (void)tree().user_arrow(tree().find(L"a100002"));
  EXPECT_EQ(names(), Names{L"Třetí novinka"});
}

TEST_F(ListRadiosWindow, EnterInTheTreeFilters) {
  directory.Naladit();
  tree().select(tree().find(L"a100002")); // by program: nothing is filtered yet
  EXPECT_EQ(names().size(), 4U);
  (void)tree().user_enter();
  EXPECT_EQ(names(), Names{L"Třetí novinka"});
}

TEST_F(ListRadiosWindow, ARememberedRowBeyondTheRowsSelectsNothing) {
  directory.Naladit();
  (void)list().user_pick(4, MouseButton::left);
  pick_node(L"a1000011");
  EXPECT_EQ(list().selected(), 0U);
  EXPECT_EQ(names(), Names{L"První"});
  pick_node(L"a100000");
  EXPECT_EQ(list().selected(), 4U);
}

TEST_F(ListRadiosWindow, UpdatesFromTheServer) {
  directory.Naladit();
  write(L"seznam.tt", "old");
  const std::string seznam =
      "orb:k:new//100009/@/Nov\xe1\r\n" + test::Record{"NOVA01", "Nov\xe1 stanice", "", "", "1000091"}.line() + "<end>";
  write(L"orb_test_size.tt", "size:" + std::to_string(seznam.size()));
  loop.advance(100);
  ASSERT_EQ(shell.started.size(), 2U);
  EXPECT_EQ(shell.started[1].command_line,
            L"load.exe http://server/lumotune.brelt/lt_list.php?idh=idhhodnota/@/" + machine.folder + L"/seznam.tt");
  write(L"seznam.tt", seznam.substr(0, seznam.size() / 2));
  loop.advance(100);
  EXPECT_EQ(status().substr(0, 25), L"Aktualizuji seznam rádií ");
  EXPECT_TRUE(part<platform::memory::ProgressBar>(L"Progress").visible());
  EXPECT_EQ(part<platform::memory::ProgressBar>(L"Progress").percent(), 50);
  EXPECT_NE(content(L"radios.tt").find("RADIO1"), std::string::npos);
  write(L"seznam.tt", seznam);
  loop.advance(100);
  EXPECT_EQ(status(), L"Hotovo, připraven...");
  EXPECT_FALSE(part<platform::memory::ProgressBar>(L"Progress").visible());
  EXPECT_EQ(tree().count(), 1U);
  EXPECT_EQ(tree().selected(), 0U) << "no node was clicked before";
  EXPECT_EQ(names(), Names{L"Nová stanice"}) << "the first node's stations";
  EXPECT_EQ(content(L"kategories.tt"), "new//100009/@/Nov\xe1\r\n\r\n");
}

TEST_F(ListRadiosWindow, TheClickedCategoryIsShownAgainAfterTheUpdate) {
  directory.Naladit();
  pick_node(L"a100002");
  const std::string more = content(L"kategories.tt");
  std::string seznam;
  for (const char* line :
       {"new//100000/@/V", "add//1000001/@/P", "new//100001/@/C", "add//1000011/@/P", "new//100002/@/S"})
    seznam += "orb:k:" + std::string(line) + "\r\n";
  seznam += stations_text() + test::Record{"RADIO9", "Dev\xe1t\xe9", "", "", "1000022"}.line();
  serve(seznam);
  part<platform::memory::Button>(L"Command1").press();
  EXPECT_FALSE(part<platform::memory::Button>(L"Command1").enabled());
  loop.advance(1000);
  EXPECT_EQ(names(), (Names{L"Třetí novinka", L"Deváté"}));
  EXPECT_EQ(tree().selected(), tree().find(L"a100002"));
  EXPECT_TRUE(part<platform::memory::Button>(L"Command1").enabled());
}

TEST_F(ListRadiosWindow, AdvertisementAndInformationComeBeforeTheFiles) {
  directory.Naladit();
  bool shown_before_written = false;
  const std::string seznam = "orb:r:1050/@/7125/@/1/@/http://server/reklama\r\norb:i:0/@//@/10/@/Zpr\xe1va\r\n" +
                             test::Record{"NOVA01", "Nov\xe1"}.line();
  serve(seznam);
  auto& browser = part<platform::memory::Browser>(L"WebBrowser1");
  files.make_readonly(machine.folder + L"\\radios.tt");
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(300);
  shown_before_written = browser.visited == Names{L"http://server/reklama"} && label(L"InfoPanel").visible();
  EXPECT_TRUE(shown_before_written);
  EXPECT_NE(content(L"radios.tt").find("RADIO1"), std::string::npos) << "the old file stays";
  EXPECT_EQ(window_shown().rect().height, 6045) << "the line came after the advertisement";
  loop.advance(200);
  EXPECT_EQ(label(L"InfoPanel").text(), L"Zpráva");
}

TEST_F(ListRadiosWindow, ARefusalKeepsTheOldFiles) {
  directory.Naladit();
  const std::string before = content(L"radios.tt");
  for (const char* reply : {"orb.cz:error", "SERVER:ERROR jindy", "size:0", "size:-5", "size:", "size:mnoho", "nic"}) {
    part<platform::memory::Button>(L"Command1").press();
    window_shown().user_close();
    loop.advance(200);
    directory.Naladit();
    write(L"orb_test_size.tt", reply);
    loop.advance(200);
    EXPECT_EQ(status(), L"Aktualizaci nyní nelze provést, zkuste to prosím později.") << reply;
    EXPECT_EQ(content(L"radios.tt"), before);
  }
}

TEST_F(ListRadiosWindow, WithoutAConnectionTheButtonStaysDisabled) {
  directory.Naladit();
  connection.now.connected = false;
  const auto started = shell.started.size();
  part<platform::memory::Button>(L"Command1").press();
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"Nejste připojeni k internetu.\r\nProsím připojte se!");
  EXPECT_EQ(dialogs.shown[0].icon, platform::BoxIcon::information);
  EXPECT_FALSE(part<platform::memory::Button>(L"Command1").enabled());
  EXPECT_EQ(shell.started.size(), started);
}

TEST_F(ListRadiosWindow, NewCategoriesReloadTheTreeOnce) {
  directory.Naladit();
  loop.advance(1000);
  (void)favourites_shown_anew();
  write(L"kategories.tt", "new//100007/@/Jin\xe9\r\n");
  write(L"kategories_new.tt", "x");
  part<platform::memory::Button>(L"Command1").set_enabled(false);
  loop.advance(500);
  EXPECT_EQ(tree().count(), 1U);
  EXPECT_TRUE(favourites_shown_anew());
  EXPECT_EQ(session.refresh_favourites, L"");
  EXPECT_TRUE(part<platform::memory::Button>(L"Command1").enabled());
  EXPECT_EQ(status(), L"");
  loop.advance(2000);
  EXPECT_FALSE(favourites_shown_anew());
}

TEST_F(ListRadiosWindow, CategoriesThatAreThereAlreadyAreNotWatchedFor) {
  write(L"kategories_new.tt", "x");
  (void)favourites_shown_anew();
  directory.Naladit();
  loop.advance(2000);
  EXPECT_FALSE(favourites_shown_anew());
}

TEST_F(ListRadiosWindow, LinksAreUnderlinedUnderTheMouse) {
  directory.Naladit();
  const std::array links{L"Label5", L"Label6", L"Label7", L"Label9", L"Label10", L"Label4"};
  for (const wchar_t* name : links) {
    (void)label(name).user_mouse_move({});
    for (const wchar_t* other : links)
      EXPECT_EQ(label(other).underline(), name == other) << other << " under the mouse at " << name;
  }
  EXPECT_EQ(label(L"Label4").text_colour(), platform::Colour{0xC00000});
  (void)part<platform::memory::Frame>(L"Frame1").user_mouse_move({});
  for (const wchar_t* name : links)
    EXPECT_FALSE(label(name).underline()) << name;
  EXPECT_EQ(label(L"Label4").text_colour(), platform::Colour{0});
}

} // namespace
} // namespace lumotune::directory
