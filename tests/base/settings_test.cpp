// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/base_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(Settings, ReadsEveryValueFromItsLineAndColumn) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.read_values();
  EXPECT_EQ(w.settings.idh, L"idhhodnota");
  EXPECT_EQ(w.settings.h, L"tajne");
  EXPECT_EQ(w.settings.nickname, L"Přezdívka");
  EXPECT_EQ(w.settings.LTTop, L"0");
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(w.settings.KvalitaLT, L"2");
  EXPECT_EQ(w.settings.LTautoStart, L"0");
  EXPECT_EQ(w.settings.client_link, L"on");
  EXPECT_EQ(w.settings.LTvolume, L"40");
  EXPECT_EQ(w.settings.LTskin, L"Lumo");
  EXPECT_EQ(w.settings.LTpleft, L"3000");
  EXPECT_EQ(w.settings.LTptop, L"4500");
}

TEST(Settings, WhoIsLoggedInHasAnIdentityOfAnyLength) {
  for (const char* identity : {"", "x"}) {
    BaseWorld w;
    w.set_option(5, option_lines()[5].substr(0, 11) + identity);
    w.options.LoadOptions();
    EXPECT_EQ(w.options.logged_in(), *identity != '\0') << identity;
  }
}

TEST(Settings, EmptyLinesBetweenTheEntriesChangeNothing) {
  BaseWorld w;
  std::string bytes;
  for (const std::string& line : option_lines())
    bytes += "\r\n" + line + "\r\n\r\n";
  w.put(L"Orb_Data\\options.ini", bytes);
  w.options.LoadOptions();
  w.options.read_values();
  EXPECT_EQ(w.settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(w.settings.LTptop, L"4500");
  w.options.SaveOptions();
  const std::string saved = w.get(L"Orb_Data\\options.ini");
  EXPECT_EQ(saved.find("\r\n\r\n"), saved.size() - 4) << "only the closing line is empty";
}

TEST(Settings, ValuesAreTakenByLineNumberWhateverTheKey) {
  BaseWorld w;
  w.set_option(20, "#099:JinyKlic:77");
  w.options.LoadOptions();
  w.options.read_values();
  EXPECT_EQ(w.settings.LTvolume, L"77");
}

TEST(Settings, AShortIdentifierTakesTheSlashIntoItself) {
  BaseWorld w;
  w.set_option(12, "#012:LTLast:AB/3");
  w.options.LoadOptions();
  w.options.read_values();
  EXPECT_EQ(w.settings.IDlastRadio, L"AB/3");
  EXPECT_EQ(w.settings.KvalitaLT, L"");
}

TEST(Settings, SavesItsOwnLinesAndKeepsTheOthersAsBytes) {
  BaseWorld w;
  auto lines = option_lines();
  lines[2] = "#002:\x81\x90\xff zvl\xe1\x9atn\xed";
  w.put(L"Orb_Data\\options.ini", joined(lines));
  w.options.LoadOptions();
  w.options.read_values();
  w.settings.LTvolume = L"85";
  w.settings.IDlastRadio = L"RADIO2";
  w.settings.KvalitaLT = L"3";
  w.window.move(150, 300);
  w.options.SaveOptions();
  lines[12] = "#012:LTLast:RADIO2/3";
  lines[20] = "#020:LTvolume:85";
  lines[22] = "#022:LTpleft:150";
  lines[23] = "#023:LTptop:300";
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(lines));
}

TEST(Settings, AHiddenWindowKeepsThePlaceReadAtStart) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.read_values();
  w.session.window_shown = L"0";
  w.window.move(-480000, -480000);
  w.options.SaveOptions();
  const std::string saved = w.get(L"Orb_Data\\options.ini");
  EXPECT_NE(saved.find("#022:LTpleft:3000\r\n"), std::string::npos);
  EXPECT_NE(saved.find("#023:LTptop:4500\r\n"), std::string::npos);
}

TEST(Settings, AShortOrUnreadableFileIsNeverWritten) {
  BaseWorld w;
  auto lines = option_lines();
  lines.pop_back();
  w.options.LoadOptions();
  w.options.read_values();
  w.put(L"Orb_Data\\options.ini", joined(lines));
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(lines));
  w.put(L"Orb_Data\\options.ini", joined(option_lines()));
  w.files.make_unreadable(w.path(L"Orb_Data\\options.ini"));
  w.files.forget_changes();
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_EQ(w.files.changes(), std::vector<std::wstring>{L"append " + w.path(L"Orb_Data\\error.log")});
}

TEST(Settings, ALineBreakInAValueCannotMoveTheOtherLines) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.read_values();
  w.settings.IDlastRadio = L"A\r\nB\nC";
  w.options.SaveOptions();
  EXPECT_EQ(base::without_empty_lines(base::split_text_lines(w.get(L"Orb_Data\\options.ini"))).size(), 24U);
}

TEST(Settings, ServerAddressStandsInTheSeventhLineEmptyLinesCounted) {
  BaseWorld w;
  w.options.LoadOptionsServer();
  EXPECT_EQ(w.settings.server_address, L"http://server.example");
}

TEST(Settings, AFailedServerFileIsRestoredAndLoggedAndTheAddressKept) {
  BaseWorld w;
  w.settings.server_address = L"http://stary.example";
  w.put(L"Orb_Data\\orb_server.tt", "jen\r\njeden\r\n");
  w.put(L"Orb_Data\\orb_server.tt.tmp", "zaloha\r\n");
  w.options.LoadOptionsServer();
  w.options.LoadOptionsServer();
  EXPECT_EQ(w.settings.server_address, L"http://stary.example");
  EXPECT_EQ(w.get(L"Orb_Data\\orb_server.tt"), "zaloha\r\n");
  const std::string line = "1. 2. 2024 3:04:05 Lumotune (LoadOptionsServer) orb_server.tt\r\n";
  EXPECT_EQ(w.get(L"Orb_Data\\error.log"), line + line);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST(Settings, ASaveRightAfterTheServerFileWouldUseItsLines) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.read_values();
  w.options.LoadOptionsServer();
  w.options.SaveOptions(); // seven lines are no settings file: nothing may be written
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
}

TEST(Settings, AShortServerFileAfterAFullOneDoesNotKeepTheOldLines) {
  BaseWorld w;
  w.options.LoadOptions();
  w.put(L"Orb_Data\\orb_server.tt", "jen\r\njeden\r\n");
  w.options.LoadOptionsServer();
  EXPECT_EQ(w.settings.server_address, L"");
  EXPECT_NE(w.get(L"Orb_Data\\error.log"), "(none)");
}

TEST(Settings, AMissingServerFileComesBackFromTheClientsCopy) {
  BaseWorld w;
  (void)w.files.remove(w.path(L"Orb_Data\\orb_server.tt"));
  w.options.LoadOptions(); // its lines must not be taken for the server's
  w.put(L"Orb_Data\\orb_server.tt.tmp", "\r\n\r\n\r\n\r\n\r\n\r\n123456789012345http://zaloha\r\n");
  w.options.LoadOptionsServer();
  EXPECT_EQ(w.settings.server_address, L"") << "the address keeps its value this time";
  w.options.LoadOptionsServer();
  EXPECT_EQ(w.settings.server_address, L"http://zaloha");
}

TEST(Settings, LoadingTwiceDoesNotDoubleTheLines) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.LoadOptions();
  w.options.read_values();
  w.window.move(3000, 4500);
  w.options.SaveOptions();
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
}

TEST(Settings, AVisibleWindowSavesWhereItIs) {
  BaseWorld w;
  w.options.LoadOptions();
  w.options.read_values();
  w.session.window_shown = L"1";
  w.window.move(150, 300);
  w.options.SaveOptions();
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("#022:LTpleft:150\r\n#023:LTptop:300\r\n"), std::string::npos);
}

} // namespace
} // namespace lumotune::test
