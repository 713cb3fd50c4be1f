// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::MouseButton;
using platform::MouseEvent;
using platform::WindowState;

struct ChromeTest : testing::Test {
  SkinWorld w;
  ChromeTest() { w.settings.LTskin = L"Tmava"; }
};

TEST_F(ChromeTest, OnTopSetsLayerFlagAndPicture) {
  w.frame.OnTopYES();
  EXPECT_TRUE(w.window.topmost());
  EXPECT_EQ(w.settings.LTTop, L"1");
  EXPECT_EQ(w.file_name(w.form.LineMenu_OnTop.picture()), L"ot.gif");
  w.frame.OnTopNO();
  EXPECT_FALSE(w.window.topmost());
  EXPECT_EQ(w.settings.LTTop, L"0");
  EXPECT_EQ(w.file_name(w.form.LineMenu_OnTop.picture()), L"otn.gif");
}

TEST_F(ChromeTest, TheClickGoesByTheNumericValue) {
  for (const wchar_t* on : {L"1", L"1.0", L" 1x"}) {
    w.settings.LTTop = on;
    w.frame.LineMenu_OnTop_Click();
    EXPECT_EQ(w.settings.LTTop, L"0") << on;
  }
  for (const wchar_t* off : {L"0", L"", L"2", L"ano"}) {
    w.settings.LTTop = off;
    w.frame.LineMenu_OnTop_Click();
    EXPECT_EQ(w.settings.LTTop, L"1") << off;
  }
}

TEST_F(ChromeTest, MinimisingHidesAndMaximisingBringsBack) {
  w.window.set_visible(true);
  w.frame.FormMin();
  EXPECT_FALSE(w.window.visible());
  EXPECT_EQ(w.window.state(), WindowState::minimized);
  EXPECT_EQ(w.session.window_shown, L"0");
  w.frame.FormMax();
  EXPECT_TRUE(w.window.visible());
  EXPECT_EQ(w.window.state(), WindowState::normal);
  EXPECT_EQ(w.session.window_shown, L"1");
  EXPECT_EQ(w.window.redrawn, 1);
  EXPECT_EQ(w.window.activated, 1);
}

TEST_F(ChromeTest, TheToggleGoesByWhatIsSeen) {
  w.window.set_visible(true);
  w.session.window_shown = L"0"; // wrong: the window was shown by somebody else
  w.frame.OrbMinMax();
  EXPECT_FALSE(w.window.visible());
  w.session.window_shown = L"1";
  w.frame.OrbMinMax();
  EXPECT_TRUE(w.window.visible());
}

TEST_F(ChromeTest, DragsFromMouseMovesWithTheLeftButtonOnly) {
  w.frame.Form_MouseMove({MouseButton::none, 1, 1});
  w.frame.Form_MouseMove({MouseButton::right, 1, 1});
  EXPECT_EQ(w.window.dragged, 0);
  w.frame.Form_MouseMove({MouseButton::left, 1, 1});
  EXPECT_EQ(w.window.dragged, 1);
}

TEST_F(ChromeTest, TheLinksAreUnderlinedUnderThePointer) {
  w.frame.InfoName_MouseMove();
  w.frame.InfoNaladit_MouseMove();
  EXPECT_TRUE(w.form.InfoName.underline());
  EXPECT_TRUE(w.form.InfoNaladit.underline());
  w.frame.LTDisplay_MouseMove();
  EXPECT_FALSE(w.form.InfoName.underline());
  EXPECT_FALSE(w.form.InfoNaladit.underline());
}

} // namespace
} // namespace lumotune::test
