// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/command_lines.h"
#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

#include <utility>

namespace lumotune::test {
namespace {

using companions::CompanionValues;
using companions::Launch;
using platform::ShowWindow;

const CompanionValues values = {L"C:\\Program Files\\Orb", L"http://s.example", L"IDH1", L"HH2"};

void expect(const Launch& launch, const std::wstring& command_line, const std::wstring& application, ShowWindow show) {
  EXPECT_EQ(launch.command_line, command_line);
  EXPECT_EQ(launch.application, application);
  EXPECT_EQ(launch.show, show);
}

const std::wstring browser_program = L"C:\\Program Files\\Orb\\OrbBrowser.exe";
const std::wstring recorder_program = L"C:\\Program Files\\Orb\\OrbRecorder.exe";

TEST(CompanionsTest, TheDiscussionOfAStation) {
  expect(companions::discussion(values, L"ABC123", L"První rádio"),
         L"C:\\Program Files\\Orb\\OrbBrowser.exe http://s.example\\orb\\diskuze.php?idh=IDH1&h=HH2&t=100000&tid=ABC123"
         L"/@/9000/@/9000/@/Diskuze k rádiové stanici: První rádio (Orb)/@/normal/@/endtestnull/@/",
         browser_program, ShowWindow::minimized_focus);
}

TEST(CompanionsTest, TheOtherPagesInTheBrowser) {
  expect(companions::add_station(values),
         L"C:\\Program Files\\Orb\\OrbBrowser.exe http://s.example/lumotune.brelt/user_lt_add.php?idh=IDH1&h=HH2"
         L"/@/9000/@/9000/@/Přidat nové rádio (Orb)/@/normal/@/endtestnull/@/",
         browser_program, ShowWindow::minimized_focus);
  expect(companions::OrbMelodeon(values),
         L"C:\\Program Files\\Orb\\OrbBrowser.exe http://s.example\\orb\\melodeon.php?idh=IDH1&h=HH2"
         L"/@/14000/@/8000/@/Orb Melodeon (Orb)/@/max/@/endtestnull/@/",
         browser_program, ShowWindow::minimized_focus);
  expect(companions::browser_page(values, L"orb/stranka.php?a=1", L"9000/@/9000/@/Titulek/@/normal/@/endtestnull/@/"),
         L"C:\\Program Files\\Orb\\OrbBrowser.exe http://s.example/orb/stranka.php?a=1"
         L"/@/9000/@/9000/@/Titulek/@/normal/@/endtestnull/@/",
         browser_program, ShowWindow::minimized_focus);
}

TEST(CompanionsTest, TheRecorderGetsTheNameUnquoted) {
  expect(companions::recorder(values, L"První české rádio"),
         L"C:\\Program Files\\Orb\\OrbRecorder.exe První české rádio", recorder_program, ShowWindow::normal_focus);
  expect(companions::recorder(values, L""), L"C:\\Program Files\\Orb\\OrbRecorder.exe ", recorder_program,
         ShowWindow::normal_focus);
  expect(companions::recordings_library(values), L"C:\\Program Files\\Orb\\OrbRecorder.exe l", recorder_program,
         ShowWindow::normal_focus);
}

TEST(CompanionsTest, TheProblemReportComesFromTheCurrentFolder) {
  expect(companions::problem_report(values, L"ABC123", L"První rádio"),
         L"remind.exe RadioOFF/@/ABC123/@/První rádio/@/IDH1/@/HH2/@/http://s.example", L"", ShowWindow::normal_focus);
  expect(companions::problem_report(values, L"", L""), L"remind.exe RadioOFF/@//@//@/IDH1/@/HH2/@/http://s.example",
         L"", ShowWindow::normal_focus);
}

TEST(CompanionsTest, TelevisionAndClient) {
  expect(companions::television(values, L"mms://tv.example/a+b").value(),
         L"C:\\Program Files\\Orb\\Telvix.exe mms://tv.example/a+b", L"C:\\Program Files\\Orb\\Telvix.exe",
         ShowWindow::normal_focus);
  expect(companions::messenger_client(values), L"C:\\Program Files\\Orb\\orb.exe m", L"C:\\Program Files\\Orb\\orb.exe",
         ShowWindow::normal_no_focus);
  EXPECT_EQ(companions::client_for_login(), (Launch{L"orb.exe", L"", ShowWindow::normal_focus}));
}

TEST(CompanionsTest, TheDownloaderKeepsBothSlashes) {
  expect(companions::play_report(values, true, L"ABC123"),
         L"load.exe http://s.example/orb/lt_all.php?idh=IDH1&h=HH2&orbw=on&lt=on&stanice=ABC123"
         L"/@/C:\\Program Files\\Orb\\orblt.tt",
         L"", ShowWindow::normal_no_focus);
  expect(companions::play_report(values, false, L"ABC123"),
         L"load.exe http://s.example/orb/lt_all.php?idh=IDH1&h=HH2&orbw=off&lt=on&stanice=ABC123"
         L"/@/C:\\Program Files\\Orb\\orblt.tt",
         L"", ShowWindow::normal_no_focus);
  expect(companions::station_list(values),
         L"load.exe http://s.example/lumotune.brelt/lt_list.php?idh=IDH1/@/C:\\Program Files\\Orb/seznam.tt", L"",
         ShowWindow::normal_no_focus);
  expect(companions::station_list_size(values),
         L"load.exe http://s.example/lumotune.brelt/lt_list.php?size=1&idh=IDH1"
         L"/@/C:\\Program Files\\Orb\\orb_test_size.tt",
         L"", ShowWindow::normal_no_focus);
}

TEST(CompanionsTest, AddressesOfTheSite) {
  EXPECT_EQ(companions::login_address(values, L"75-84-", L""), L"http://s.example/login/IDH1/75-84-//1");
  EXPECT_EQ(companions::login_address(values, L"75-84-", L"a*l*b"), L"http://s.example/login/IDH1/75-84-/a*l*b/1");
  EXPECT_EQ(companions::help_address(values), L"http://s.example/faq");
}

TEST(CompanionsTest, BlanksAroundTheServersAddressAreLeftOut) {
  const MemoryPlatform p;
  base::Settings settings;
  settings.server_address = L"  http://s.example ";
  settings.idh = L"IDH1";
  const CompanionValues blank = companions::companion_values(p.folder, settings);
  EXPECT_EQ(companions::help_address(blank), L"http://s.example/faq");
  EXPECT_EQ(companions::login_address(blank, L"75-", L""), L"http://s.example/login/IDH1/75-//1");
  EXPECT_TRUE(companions::station_list(blank).command_line.starts_with(L"load.exe http://s.example/lumotune.brelt/"));
}

TEST(CompanionsTest, EmptyValuesLeaveTheRestAsItIs) {
  const CompanionValues nothing = {L"C:\\Orb", L"", L"", L""};
  EXPECT_EQ(companions::station_list(nothing).command_line,
            L"load.exe /lumotune.brelt/lt_list.php?idh=/@/C:\\Orb/seznam.tt");
  EXPECT_EQ(companions::login_address(nothing, L"", L""), L"/login////1");
}

TEST(CompanionsTest, NoQuotationMarkAndNoControlCharacterGetsThrough) {
  const std::wstring nasty = std::wstring(L"a\" \"b\r\n\tc") + L'\0' + L"d\x7F";
  const std::wstring tame = L"a' 'b   c d ";
  EXPECT_EQ(companions::recorder(values, nasty).command_line, recorder_program + L" " + tame);
  EXPECT_FALSE(companions::television(values, L"http://" + nasty).has_value());
  EXPECT_EQ(companions::browser_page(values, nasty, nasty).command_line,
            browser_program + L" http://s.example/" + tame + L"/@/" + tame);
  const CompanionValues worse = {L"C:\\Orb", nasty, nasty, nasty};
  for (const Launch& launch :
       {companions::discussion(worse, nasty, nasty), companions::add_station(worse), companions::OrbMelodeon(worse),
        companions::browser_page(worse, nasty, nasty), companions::problem_report(worse, nasty, nasty),
        companions::play_report(worse, true, nasty), companions::station_list(worse),
        companions::station_list_size(worse)}) {
    for (const wchar_t character : launch.command_line)
      ASSERT_TRUE(character >= L' ' && character != L'"' && character != 0x7F) << launch.command_line.size();
  }
}

TEST(CompanionsTest, ANameOrIdentifierAddsNoField) {
  EXPECT_EQ(companions::problem_report(values, L"A/@/B", L"//@/@/x/@/").command_line,
            L"remind.exe RadioOFF/@/AB/@/x/@/IDH1/@/HH2/@/http://s.example");
  EXPECT_EQ(companions::problem_report(values, L"AB/@", L"@/x/@/@").command_line,
            L"remind.exe RadioOFF/@/AB/@/@/x@/@/IDH1/@/HH2/@/http://s.example");
  EXPECT_EQ(companions::problem_report(values, L"AB/@/@", L"/@").command_line,
            L"remind.exe RadioOFF/@/AB@/@//@/IDH1/@/HH2/@/http://s.example");
  const std::wstring line = companions::discussion(values, L"id/@/1", L"n/@/max/@/").command_line;
  EXPECT_NE(line.find(L"&tid=id1/@/9000/@/9000/@/Diskuze k rádiové stanici: nmax (Orb)/@/normal/@/"),
            std::wstring::npos);
  EXPECT_NE(companions::play_report(values, true, L"x/@/C:\\y").command_line.find(L"stanice=xC:\\y/@/C:\\Program"),
            std::wstring::npos);
}

// The downloader writes what a server answers into the file behind the first delimiter.
TEST(CompanionsTest, NothingMovesTheFileThatTheDownloaderWrites) {
  for (const wchar_t* text :
       {L"x/@/C:\\Orb\\orb.exe", L"x/@", L"/@/", L"/@", L"x/@/@/@", L"/@/@//", L"//@/@/C:\\y/@"}) {
    const CompanionValues worse = {L"C:\\Orb", std::wstring(L"http://s") + text, text, text};
    for (const auto& [launch, file] :
         {std::pair(companions::play_report(worse, true, text), L"/@/C:\\Orb\\orblt.tt"),
          std::pair(companions::station_list(worse), L"/@/C:\\Orb/seznam.tt"),
          std::pair(companions::station_list_size(worse), L"/@/C:\\Orb\\orb_test_size.tt")}) {
      const std::wstring& line = launch.command_line;
      EXPECT_TRUE(line.ends_with(file)) << testing::PrintToString(line);
      EXPECT_EQ(line.find(L"/@/"), line.size() - std::wstring_view(file).size()) << testing::PrintToString(line);
    }
    const std::wstring record = companions::problem_report(worse, text, text).command_line;
    std::size_t delimiters = 0;
    for (std::size_t at = record.find(L"/@/"); at != std::wstring::npos; at = record.find(L"/@/", at + 3))
      ++delimiters;
    EXPECT_EQ(delimiters, 5U) << testing::PrintToString(record);
  }
}

TEST(CompanionsTest, LongTextsAreCut) {
  const std::wstring endless(100'000, L'x');
  const CompanionValues worse = {L"C:\\Orb", endless, endless, endless};
  EXPECT_EQ(companions::recorder(values, endless).command_line.size(),
            recorder_program.size() + 1 + companions::max_field);
  EXPECT_NE(companions::play_report(values, true, endless)
                .command_line.find(L"stanice=" + std::wstring(companions::max_id, L'x') + L"/@/"),
            std::wstring::npos);
  EXPECT_LT(companions::discussion(worse, endless, endless).command_line.size(), 32767U) << "the system's longest";
}

TEST(CompanionsTest, ProgramsThatATextFromOutsideMayName) {
  const MemoryPlatform p;
  EXPECT_EQ(companions::companion_program(p.folder, L"ORB.EXE"), L"C:\\Orb\\orb.exe");
  EXPECT_EQ(companions::companion_program(p.folder, L" telvix.exe  "), L"C:\\Orb\\Telvix.exe");
  for (const wchar_t* name : {L"", L" ", L"orb", L"orb.exe m", L"x\\orb.exe", L"orb.exe.", L"seznam.tt",
                              L"seznam.tt.exe", L"orb.exe:a", L"explorer.exe", L"cmd.exe", L"\torb.exe"})
    EXPECT_EQ(companions::companion_program(p.folder, name), L"") << testing::PrintToString(std::wstring(name));
}

TEST(CompanionsTest, AHugeNameIsDealtWithInOnePass) {
  std::wstring huge;
  for (int i = 0; i < 300000; ++i)
    huge += L"/@/";
  EXPECT_EQ(companions::recorder(values, huge).command_line, recorder_program + L" ");
}

TEST(CompanionsTest, AMissingProgramIsNoError) {
  platform::memory::Shell shell;
  shell.start_works = false;
  companions::launch(shell, companions::television(values, L"http://tv.example").value());
  ASSERT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(shell.started[0].application, L"C:\\Program Files\\Orb\\Telvix.exe");
}

} // namespace
} // namespace lumotune::test
