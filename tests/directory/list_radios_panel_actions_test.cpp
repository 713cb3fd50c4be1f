// SPDX-License-Identifier: LGPL-2.1-or-later
// What a click on the information line does.
#include "base/boxes.h"
#include "base/text.h"
#include "tests/directory/panel_world.h"

namespace lumotune::directory {
namespace {

TEST_F(ListRadiosPanel, OpensAPageByWayOfTheLoginPage) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/OPENURL/@/a/b?c=d");
  line.InfoPanel_Click();
  EXPECT_EQ(opened(), std::vector<std::wstring>{L"http://server/login/ja/" + scrambled() + L"/a*l*b*o*c*r*d/1"});
}

TEST_F(ListRadiosPanel, EncodesAPageAsOneSegment) {
  std::wstring page = L"a=b/c&d#e?f*";
  EXPECT_EQ(MakePageRe(page), L"a*r*b*l*c*a*d*k*e*o*f*");
  EXPECT_EQ(page, L"a*r*b*l*c*a*d*k*e*o*f*");
}

TEST_F(ListRadiosPanel, ShowsUsersThroughTheClientsOwnProgramsOnly) {
  (void)files.replace(machine.folder + L"\\orb.exe", "x");
  const auto click = [this](const std::wstring& name) {
    (void)files.replace(machine.folder + L"\\" + name, "x"); // that it is there is not enough
    line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/" + name + L"||Orb - Lumotune||lts:RADIO1||1");
    line.InfoPanel_Click();
  };
  for (const wchar_t* name : {L"..orb.exe", L"ORB.exe", L"orb.exe ", L"orbbrowser.EXE", L"OrbRecorder.exe",
                              L"Telvix.exe", L"remind.exe", L"load.exe"}) {
    shell.started.clear();
    click(name);
    ASSERT_EQ(shell.started.size(), 1U) << testing::PrintToString(std::wstring(name));
    EXPECT_TRUE(shell.started[0].application.starts_with(machine.folder + L"\\"));
    EXPECT_TRUE(shell.started[0].application.ends_with(L".exe")) << "as we know it, whole";
    EXPECT_EQ(shell.started[0].command_line, base::replace_ignoring_case(name, L"..", L"")) << "as it came";
  }
  shell.started.clear();
  for (const wchar_t* name : {L"seznam.tt",
                              L"SEZNAM.TT",
                              L"orb_test_size.tt",
                              L"orblt.tt",
                              L"radios.tt",
                              L"evil.exe",
                              L"c:\\windows\\cmd.exe",
                              L"cmd.exe /c x",
                              L"orb.exe x",
                              L"orb.exe.tt",
                              L"orb.exe.",
                              L"orb",
                              L"\"orb.exe\"",
                              L"sub/orb.exe",
                              L"sub\\orb.exe",
                              L"",
                              L"orb.exe:x",
                              L"'orb.exe'",
                              L"or\tb.exe",
                              L"seznam.tt .exe",
                              L"or\x01"
                              L"b.exe"})
    click(name);
  EXPECT_TRUE(shell.started.empty());
}

TEST_F(ListRadiosPanel, AProgramThatIsNotThereIsNotStarted) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/orb.exe||Orb - Lumotune||lts:RADIO1||2");
  line.InfoPanel_Click();
  EXPECT_TRUE(shell.started.empty());
  EXPECT_EQ(messages.looked_up.size(), 1U);
  messages.add_window(L"Orb - Lumotune", static_cast<platform::WindowRef>(7));
  line.InfoPanel_Click();
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent.back().bytes, "lts:RADIO1") << "a window that is there hears of it";
}

// What the main window is sent reaches this machine's files; the server's text does not.
TEST_F(ListRadiosPanel, TheServerDoesNotSpeakThroughUsToOurselves) {
  for (const wchar_t* caption : {L"Lumotune", L"LUMOTUNE", L""}) {
    messages.add_window(caption, static_cast<platform::WindowRef>(5));
    line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/orb.exe||" + std::wstring(caption) + L"||p:C:\\a.mp3||0");
    line.InfoPanel_Click();
  }
  EXPECT_TRUE(messages.sent.empty());
  EXPECT_TRUE(messages.looked_up.empty());
}

TEST_F(ListRadiosPanel, AnActionWithAParameterThatIsTooLongIsNone) {
  const std::wstring longest(InfoPanelLine::max_parameter, L'a');
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/openurl/@/" + longest);
  line.InfoPanel_Click();
  EXPECT_EQ(opened(), std::vector<std::wstring>{L"http://server/login/ja/" + scrambled() + L"/" + longest + L"/1"});
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/openurl/@/" + longest + L"a");
  line.InfoPanel_Click();
  EXPECT_EQ(opened().size(), 1U);
}

TEST_F(ListRadiosPanel, TheFourPiecesAreThoseOfAMessage) {
  (void)files.replace(machine.folder + L"\\orb.exe", "x");
  messages.add_window(L"Jiné okno", static_cast<platform::WindowRef>(3));
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/SHOWUSERS/@/o..rb...e..xe||Jiné okno||a..b||2||pátý");
  line.InfoPanel_Click();
  ASSERT_EQ(messages.sent.size(), 1U);
  EXPECT_EQ(messages.sent[0].target, static_cast<platform::WindowRef>(3));
  EXPECT_EQ(messages.sent[0].bytes, "a..b") << "only the program's name loses its dots";
  messages.remove_window(L"Jiné okno");
  line.InfoPanel_Click();
  EXPECT_EQ(shell.started.size(), 9U) << "the mode is the fourth piece";
  EXPECT_EQ(shell.started[0].command_line, L"orb.exe");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/orb.exe||Jiné okno||a||x");
  line.InfoPanel_Click();
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/orb.exe||Jiné okno||a");
  line.InfoPanel_Click();
  EXPECT_EQ(shell.started.size(), 9U) << "a piece that is missing ends it";
}

TEST_F(ListRadiosPanel, ASecondClickWhileAWindowIsAwaitedIsDropped) {
  (void)files.replace(machine.folder + L"\\orb.exe", "x");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/orb.exe||Orb - Lumotune||lts:RADIO1||2");
  loop.at(700, [this] { line.InfoPanel_Click(); });
  line.InfoPanel_Click();
  EXPECT_EQ(shell.started.size(), 9U);
  line.InfoPanel_Click();
  EXPECT_EQ(shell.started.size(), 18U) << "and the next one works again";
}

TEST_F(ListRadiosPanel, TheParameterIsRewrittenInPlace) {
  const std::wstring given = scrambled();
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/*.Orbh*=*.!Orbh*|=|9000");
  line.InfoPanel_Click();
  settings.h = L"jine";
  line.InfoPanel_Click();
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.shown[0].text, L"heslo=" + given + L"\r\n9000");
  EXPECT_EQ(dialogs.shown[1].text, dialogs.shown[0].text) << "no placeholder is left";
  EXPECT_EQ(dialogs.shown[1].title, base::box_title);
  EXPECT_EQ(dialogs.shown[1].buttons, platform::BoxButtons::ok);
}

TEST_F(ListRadiosPanel, APlaceholderIsNotLookedForInWhatWasPutIn) {
  settings.idh = L"a*.l*b";
  settings.h = L"c||d|=|e";
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/*.Orbidh*|=|*.Orbh*");
  line.InfoPanel_Click();
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, L"a/b\r\nc/@/d") << "but the later steps work on all of it";
}

TEST_F(ListRadiosPanel, WithoutASecondPieceNothingIsOpened) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/clanek.html");
  line.InfoPanel_Click();
  EXPECT_TRUE(dialogs.shown.empty() && shell.started.empty());
}

TEST_F(ListRadiosPanel, NothingIsOpenedWhenTheProgramEnds) {
  dialogs.while_open = [this] { loop.quit(); };
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/a|=|b");
  line.InfoPanel_Click();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/openurl/@/a");
  line.InfoPanel_Click();
  EXPECT_TRUE(shell.started.empty() && opened().empty());
}

TEST_F(ListRadiosPanel, OpensTheBrowserAfterABox) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/"
                       L"clanek*.L*1?i=*.orbidh*&h=*.OrbH*&t=*.!Orbh*|=|9000||8000||Titulek||normal||endtestnull||");
  line.InfoPanel_Click();
  const std::wstring page = L"clanek/1?i=ja&h=heslo&t=" + scrambled();
  const std::wstring fields = L"9000/@/8000/@/Titulek/@/normal/@/endtestnull/@/";
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, page + L"\r\n" + fields);
  EXPECT_EQ(dialogs.shown[0].icon, platform::BoxIcon::none);
  EXPECT_EQ(dialogs.shown[0].title, base::box_title);
  ASSERT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(shell.started[0].command_line,
            machine.folder + L"\\OrbBrowser.exe http://server/" + page + L"/@/" + fields);
  EXPECT_EQ(shell.started[0].application, machine.folder + L"\\OrbBrowser.exe");
  EXPECT_EQ(shell.started[0].show, platform::ShowWindow::minimized_focus);
}

TEST_F(ListRadiosPanel, AnUnknownActionDoesNothing) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/format/@/c:");
  line.InfoPanel_Click();
  EXPECT_TRUE(opened().empty() && shell.started.empty() && dialogs.shown.empty());
}

} // namespace
} // namespace lumotune::directory
