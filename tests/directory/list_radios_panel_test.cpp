// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/advert.h"
#include "directory/info_panel.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace lumotune::directory {
namespace {

using platform::memory::MemoryBrowser;
using platform::memory::MemoryLabel;

struct Pages final : WebPort {
  void OpenUrl(const std::wstring& address) override { opened.push_back(address); }
  void open_station_web(const std::wstring& address) override { opened.push_back(L"station " + address); }
  std::vector<std::wstring> opened;
};

struct Scrambler final : skin::IdentitySource {
  std::wstring Heslo(const std::wstring& text) override {
    if (during)
      during();
    return L"<" + text + L">";
  }
  std::function<void()> during;
};

struct ListRadiosPanel : testing::Test {
  platform::memory::MemoryEventLoop loop;
  platform::memory::MemoryFiles files;
  platform::memory::MemoryCodec codec;
  platform::memory::MemoryMachine machine;
  platform::memory::MemoryMessages messages;
  platform::memory::MemoryShell shell;
  platform::memory::MemoryDialogs dialogs;
  platform::memory::MemoryFramedWindow window{L"ListRadios", files};
  ListRadiosForm form{window};
  Layout layout{form};
  AdvertState state;
  core::Settings settings;
  core::CommandSender sender{{loop, messages, shell, codec}};
  Scrambler identity;
  Pages pages;
  WebSlot web;
  Advert advert{{form, layout, state}};
  InfoPanelLine line{{form, layout, settings, loop, dialogs, shell, files, machine, sender, identity, web}};
  MemoryLabel& shown = *window.find<MemoryLabel>(L"InfoPanel");
  MemoryBrowser& browser = *window.find<MemoryBrowser>(L"WebBrowser1");

  ListRadiosPanel() {
    web.bind(pages);
    window.on_resize = [this] { layout.place(); };
    form.InfoPanel.set_visible(false);
    form.ImageInPan.set_visible(false);
    settings.server_address = L"http://server";
    settings.idh = L"ja";
    settings.h = L"heslo";
    layout.set_up();
  }
};

TEST_F(ListRadiosPanel, TypesTheTextLetterByLetterAndStops) {
  line.ZobrazInfoPanel(L"1/@/255/@/100/@/Ahoj!/@/tip/@/openurl/@/x");
  EXPECT_TRUE(shown.visible() && window.find<platform::PictureBox>(L"ImageInPan")->visible());
  EXPECT_EQ(window.rect().height, 6045);
  EXPECT_TRUE(shown.bold());
  EXPECT_EQ(shown.text_colour(), platform::Colour{255});
  EXPECT_EQ(shown.tooltip(), L"tip");
  std::vector<std::wstring> captions;
  for (int i = 0; i < 8; ++i) {
    loop.advance(100);
    captions.push_back(shown.text());
  }
  EXPECT_EQ(captions, (std::vector<std::wstring>{L"", L"A", L"Ah", L"Aho", L"Ahoj", L"Ahoj!", L"Ahoj!", L"Ahoj!"}));
  shown.set_text(L"stojí");
  loop.advance(1000);
  EXPECT_EQ(shown.text(), L"stojí") << "the timer has stopped";
}

TEST_F(ListRadiosPanel, ANewLineStartsFromAnEmptyCaption) {
  line.ZobrazInfoPanel(L"0/@//@/100/@/první/@//@//@/");
  loop.advance(300);
  EXPECT_EQ(shown.text(), L"pr");
  line.ZobrazInfoPanel(L"0/@//@/100/@/druhý/@//@//@/");
  EXPECT_EQ(shown.text(), L"");
  loop.advance(200);
  EXPECT_EQ(shown.text(), L"d");
}

TEST_F(ListRadiosPanel, ABadFieldLeavesOutItsStepOnly) {
  line.ZobrazInfoPanel(L"1/@/255/@/100/@/text/@/tip/@/openurl/@/a");
  line.ZobrazInfoPanel(L"x/@/modrá/@/rychle/@/nový");
  EXPECT_FALSE(shown.bold());
  EXPECT_EQ(shown.text_colour(), platform::Colour{255});
  EXPECT_EQ(shown.tooltip(), L"tip");
  loop.advance(100 * 10);
  EXPECT_EQ(shown.text(), L"nový");
  line.InfoPanel_Click();
  EXPECT_EQ(pages.opened.size(), 1U) << "the action stays in force";
}

TEST_F(ListRadiosPanel, AnIntervalOfZeroIsTheSmallestOne) {
  line.ZobrazInfoPanel(L"0/@//@/0/@/abc");
  loop.advance(4);
  EXPECT_EQ(shown.text(), L"abc");
}

TEST_F(ListRadiosPanel, HugeNumbersAreHarmless) {
  line.ZobrazInfoPanel(L"0/@/99999999999999999999/@/1000000000000000000000/@/abc");
  EXPECT_EQ(shown.text_colour(), platform::Colour{0xffffff});
  advert.ZobrazReklamu(L"1000/@/999999999999/@/1/@/http://a/");
  EXPECT_FALSE(state.present) << "no screen is that high";
  advert.ZobrazReklamu(L"1000/@/1900000/@/1/@/http://a/");
  EXPECT_LE(window.rect().height, 60000);
}

TEST_F(ListRadiosPanel, OpensAPageByWayOfTheLoginPage) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/OPENURL/@/a/b?c=d");
  line.InfoPanel_Click();
  EXPECT_EQ(pages.opened, std::vector<std::wstring>{L"http://server/login/ja/<heslo>/a*l*b*o*c*r*d/1"});
}

TEST_F(ListRadiosPanel, EncodesAPageAsOneSegment) {
  std::wstring page = L"a=b/c&d#e?f*";
  EXPECT_EQ(MakePageRe(page), L"a*r*b*l*c*a*d*k*e*o*f*");
  EXPECT_EQ(page, L"a*r*b*l*c*a*d*k*e*o*f*");
}

TEST_F(ListRadiosPanel, ShowsUsersThroughAProgramOfTheFolderOnly) {
  (void)files.replace(machine.folder + L"\\orb.exe", "x");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/..orb.exe||Orb - Lumotune||lts:RADIO1||1");
  line.InfoPanel_Click();
  ASSERT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(shell.started[0].command_line, L"orb.exe");
  for (const wchar_t* name :
       {L"neni.exe", L"c:\\windows\\cmd.exe", L"cmd.exe /c x", L"\"orb.exe\"", L"sub/orb.exe", L"", L"orb.exe "}) {
    line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/showusers/@/" + std::wstring(name) + L"||Orb - Lumotune||lts:RADIO1||2");
    line.InfoPanel_Click();
    EXPECT_EQ(shell.started.size(), 1U) << "not started";
  }
  messages.add_window(L"Orb - Lumotune", static_cast<platform::WindowRef>(7));
  line.InfoPanel_Click();
  ASSERT_FALSE(messages.sent.empty());
  EXPECT_EQ(messages.sent.back().bytes, "lts:RADIO1") << "a window that is there hears of it";
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
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/*.Orbh*=*.!Orbh*|=|9000");
  line.InfoPanel_Click();
  settings.h = L"jine";
  line.InfoPanel_Click();
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.shown[0].text, L"heslo=<heslo>\r\n9000");
  EXPECT_EQ(dialogs.shown[1].text, dialogs.shown[0].text) << "no placeholder is left";
  EXPECT_EQ(dialogs.shown[1].title, platform::Dialogs::default_title);
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

TEST_F(ListRadiosPanel, ALineThatComesMeanwhileIsNotLost) {
  identity.during = [this] {
    identity.during = {};
    line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/novy|=|2");
  };
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/stary|=|1");
  line.InfoPanel_Click();
  line.InfoPanel_Click();
  EXPECT_EQ(dialogs.shown.back().text, L"novy\r\n2");
}

TEST_F(ListRadiosPanel, NothingIsOpenedWhenTheProgramEnds) {
  dialogs.while_open = [this] { loop.quit(); };
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/a|=|b");
  line.InfoPanel_Click();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/openurl/@/a");
  line.InfoPanel_Click();
  EXPECT_TRUE(shell.started.empty() && pages.opened.empty());
}

TEST_F(ListRadiosPanel, AHugeTextIsTypedAsFarAsCountingGoes) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/" + std::wstring(1024 * 1024, L'x') + L"/@/tip");
  loop.advance(InfoPanelLine::max_typed + 10);
  EXPECT_EQ(shown.text().size(), InfoPanelLine::max_typed);
  EXPECT_EQ(shown.tooltip(), L"tip");
}

TEST_F(ListRadiosPanel, OpensTheBrowserAfterABox) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/"
                       L"clanek*.L*1?i=*.orbidh*&h=*.OrbH*&t=*.!Orbh*|=|9000||8000||Titulek||normal||endtestnull||");
  line.InfoPanel_Click();
  const std::wstring page = L"clanek/1?i=ja&h=heslo&t=<heslo>";
  const std::wstring fields = L"9000/@/8000/@/Titulek/@/normal/@/endtestnull/@/";
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].text, page + L"\r\n" + fields);
  EXPECT_EQ(dialogs.shown[0].icon, platform::BoxIcon::none);
  EXPECT_EQ(dialogs.shown[0].title, platform::Dialogs::default_title);
  ASSERT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(shell.started[0].command_line,
            machine.folder + L"\\OrbBrowser.exe http://server/" + page + L"/@/" + fields);
  EXPECT_EQ(shell.started[0].application, machine.folder + L"\\OrbBrowser.exe");
  EXPECT_EQ(shell.started[0].show, platform::ShowWindow::minimized_focus);
}

TEST_F(ListRadiosPanel, AnUnknownActionDoesNothing) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/format/@/c:");
  line.InfoPanel_Click();
  EXPECT_TRUE(pages.opened.empty() && shell.started.empty() && dialogs.shown.empty());
}

TEST_F(ListRadiosPanel, UnderlinesUnderTheMouse) {
  line.InfoPanel_MouseMove();
  EXPECT_TRUE(shown.underline());
  line.InfoPanel_MouseDown();
  EXPECT_FALSE(shown.underline());
  line.InfoPanel_MouseMove();
  line.ImageInPan_MouseMove();
  EXPECT_FALSE(shown.underline());
}

TEST_F(ListRadiosPanel, ShowsAnAdvertisement) {
  advert.ReklamaTest();
  EXPECT_TRUE(browser.visited.empty());
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/reklama");
  EXPECT_EQ(browser.rect().top, 5280);
  EXPECT_EQ(browser.rect().height, 1050);
  EXPECT_EQ(window.rect().height, 7125);
  EXPECT_EQ(browser.visited, std::vector<std::wstring>{L"http://server/reklama"});
  advert.ReklamaTest();
  EXPECT_EQ(browser.visited.size(), 2U);
}

TEST_F(ListRadiosPanel, ACollapsedAdvertisementIsStillAskedFor) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  advert.ZobrazReklamu(L"1050/@/7125/@/0/@/http://server/2");
  EXPECT_EQ(browser.rect().height, 0);
  EXPECT_EQ(browser.rect().top, 10280);
  EXPECT_TRUE(browser.visible());
  EXPECT_EQ(browser.visited.back(), L"http://server/2");
}

TEST_F(ListRadiosPanel, ABadAdvertisementEndsWhereItIsBad) {
  for (const wchar_t* bad :
       {L"", L"1050", L"1050/@/7125", L"x/@/7125/@/1/@/http://a", L"1050/@/x/@/1/@/http://a", L"1050/@/7125/@/1"}) {
    advert.ZobrazReklamu(bad);
    EXPECT_FALSE(state.present);
    EXPECT_TRUE(browser.visited.empty());
  }
}

TEST_F(ListRadiosPanel, FollowsTheWindowsSize) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t");
  const auto below = [&] { return form.window.client_height() - browser.rect().top; };
  const int distance = below();
  window.user_resize(15000, 9000);
  EXPECT_EQ(below(), distance) << "it keeps its distance from the lower edge";
  EXPECT_GT(shown.rect().top, form.ListView1.rect().top + form.ListView1.rect().height);
  EXPECT_LE(shown.rect().top + shown.rect().height, browser.rect().top);
  EXPECT_GT(form.ListView1.rect().width, 5000);
  window.user_resize(100, 100);
  EXPECT_EQ(window.rect().width, window.minimum.first);
  EXPECT_GT(form.ListView1.rect().width, 2000);
  EXPECT_GT(form.Text1.rect().height, 0);
}

} // namespace
} // namespace lumotune::directory
