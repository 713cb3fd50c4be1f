// SPDX-License-Identifier: LGPL-2.1-or-later
// The information line of the directory window: its text, typed letter by letter.
#include "base/text.h"
#include "tests/directory/panel_world.h"

namespace lumotune::directory {
namespace {

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
  EXPECT_EQ(opened().size(), 1U) << "the action stays in force";
}

TEST_F(ListRadiosPanel, EachMissingFieldLeavesOutItsStepOnly) {
  const std::vector<std::wstring> fields = {L"1", L"255", L"50", L"text", L"tip", L"openurl", L"a"};
  std::wstring command;
  for (std::size_t given = 0; given <= fields.size(); ++given) {
    line.ZobrazInfoPanel(L"0/@/7/@/1000/@/old/@/old/@/format/@/old");
    line.ZobrazInfoPanel(command);
    EXPECT_EQ(shown.bold(), given > 0);
    EXPECT_EQ(shown.text_colour(), platform::Colour{given > 1 ? 255U : 7U});
    loop.advance(given > 2 ? 250 : 5000);
    EXPECT_EQ(shown.text(), given > 3 ? L"text" : L"old");
    EXPECT_EQ(shown.tooltip(), given > 4 ? L"tip" : L"old");
    shell.started.clear();
    line.InfoPanel_Click();
    EXPECT_EQ(opened().size(), given > 5 ? 1U : 0U);
    for (const std::wstring& page : opened())
      EXPECT_TRUE(page.ends_with(given > 6 ? L"/a/1" : L"/old/1"));
    if (given < fields.size())
      command += (given == 0 ? L"" : L"/@/") + fields[given];
  }
}

TEST_F(ListRadiosPanel, PendingEventsRunWhenTheLineHasItsPlace) {
  int height = 0;
  bool visible = false;
  std::wstring caption = L"?";
  shown.set_text(L"před");
  loop.at(0, [&] {
    height = window.rect().height;
    visible = shown.visible() && window.find<platform::PictureBox>(L"ImageInPan")->visible();
    caption = shown.text();
  });
  line.ZobrazInfoPanel(L"0/@//@/100/@/text");
  EXPECT_EQ(height, 6045);
  EXPECT_TRUE(visible);
  EXPECT_EQ(caption, L"před");
}

TEST_F(ListRadiosPanel, AnIntervalOfZeroIsTheSmallestOne) {
  line.ZobrazInfoPanel(L"0/@//@/0/@/abc");
  loop.advance(4);
  EXPECT_EQ(shown.text(), L"abc");
}

TEST_F(ListRadiosPanel, NumbersMayHaveBlanksASignAndDecimals) {
  for (const wchar_t* number :
       {L" 100", L"100 ", L"\t100", L"100.0", L"+100", L"0100", L" 100.4 ", L"99.5", L"100.5"}) {
    const std::wstring text = number;
    shown.set_text_colour(platform::Colour{7});
    line.ZobrazInfoPanel(L"0/@/" + text + L"/@/" + text + L"/@/ab");
    EXPECT_EQ(shown.text_colour(), platform::Colour{100}) << testing::PrintToString(text);
    loop.advance(299);
    EXPECT_EQ(shown.text(), L"a") << testing::PrintToString(text);
  }
  advert.ZobrazReklamu(L" 1050 /@/+7125.0/@/1/@/http://a/");
  EXPECT_EQ(browser.rect().height, 1050);
  EXPECT_EQ(window.rect().height, 7125);
}

TEST_F(ListRadiosPanel, ANumberOutOfRangeLeavesOutItsStep) {
  for (const wchar_t* bad :
       {L"-1", L"16777216", L"99999999999999999999", L"1,5", L"1 2", L"0x10", L".", L"1e2", L" "}) {
    line.ZobrazInfoPanel(L"0/@/255/@/100/@/ab");
    line.ZobrazInfoPanel(L"0/@/" + std::wstring(bad) + L"/@/" + bad + L"/@/ab");
    EXPECT_EQ(shown.text_colour(), platform::Colour{255}) << testing::PrintToString(std::wstring(bad));
    loop.advance(200);
    EXPECT_EQ(shown.text(), L"a") << testing::PrintToString(std::wstring(bad));
  }
  line.ZobrazInfoPanel(L"0/@/16777215/@/65535/@/ab");
  EXPECT_EQ(shown.text_colour(), platform::Colour{0xffffff});
  line.ZobrazInfoPanel(L"0/@//@/65536/@/ab");
  loop.advance(2 * 65535 - 1);
  EXPECT_EQ(shown.text(), L"");
  loop.advance(1);
  EXPECT_EQ(shown.text(), L"a");
  for (const wchar_t* bad : {L"-1", L"245746", L"999999999999"}) {
    advert.ZobrazReklamu(std::wstring(bad) + L"/@/7125/@/1/@/http://a/");
    advert.ZobrazReklamu(L"1050/@/" + std::wstring(bad) + L"/@/1/@/http://a/");
    EXPECT_FALSE(state.present) << testing::PrintToString(std::wstring(bad));
  }
  EXPECT_EQ(window.rect().height, 6045);
}

TEST_F(ListRadiosPanel, HugeNumbersAreHarmless) {
  line.ZobrazInfoPanel(L"0/@/99999999999999999999/@/1000000000000000000000/@/abc");
  EXPECT_EQ(shown.text_colour(), platform::Colour{});
  advert.ZobrazReklamu(L"1000/@/999999999999/@/1/@/http://a/");
  EXPECT_FALSE(state.present) << "no screen is that high";
  advert.ZobrazReklamu(L"1000/@/1900000/@/1/@/http://a/");
  EXPECT_LE(window.rect().height, 60000);
}

TEST_F(ListRadiosPanel, ALineThatComesMeanwhileIsNotLost) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/stary|=|1");
  loop.at(0, [this] { line.ZobrazInfoPanel(L"0/@//@/1/@/t/@//@/opengbrowser/@/novy|=|2"); });
  line.InfoPanel_Click();
  line.InfoPanel_Click();
  EXPECT_EQ(dialogs.shown.back().text, L"novy\r\n2");
}

TEST_F(ListRadiosPanel, AHugeTextIsTypedAsFarAsCountingGoes) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/" + std::wstring(1024 * 1024, L'x') + L"/@/tip");
  loop.advance(InfoPanelLine::max_typed + 10);
  EXPECT_EQ(shown.text().size(), InfoPanelLine::max_typed);
  EXPECT_EQ(shown.tooltip(), L"tip");
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

} // namespace
} // namespace lumotune::directory
