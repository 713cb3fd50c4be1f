// SPDX-License-Identifier: LGPL-2.1-or-later
// The main window as it is made, before a skin and a station are in it.
#include "base/boxes.h"
#include "tests/support/base_world.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace lumotune::base {
namespace {

struct LumotuneFormTest : testing::Test, test::BaseWorld {};

TEST_F(LumotuneFormTest, EveryPictureButtonHasANameForTheEarAndTheEye) {
  const std::pair<platform::PictureBox*, const wchar_t*> names[] = {
      {&form.Control_Play, L"Zapnout"},
      {&form.Control_Sat, L"Naladit rádio"},
      {&form.Control_Volume, L"Hlasitost"},
      {&form.Control_Rec, L"Mp3 nahrávání"},
      {&form.Control_ShowUser, L"Zobrazit posluchače"},
      {&form.Control_Menu, L"Nabídka"},
      {&form.Orbwww, L"Orb"},
      {&form.LineMenu_OnTop, L"Vždy nahoře"},
      {&form.LineMenu_Min, L"Skrýt"},
      {&form.LineMenu_End, L"Konec"},
  };
  for (const auto& [picture, name] : names) {
    EXPECT_EQ(picture->text(), name);
    EXPECT_EQ(picture->tooltip(), name);
  }
}

TEST_F(LumotuneFormTest, NothingCanBePlayedYet) {
  EXPECT_EQ(form.PlayTL.text(), L"Zapnout");
  EXPECT_FALSE(form.PlayTL.visible());
  EXPECT_FALSE(form.PlayTL.enabled());
  EXPECT_FALSE(form.Control_Play.enabled());
  EXPECT_FALSE(form.TrayIcon.visible());
  EXPECT_EQ(form.InfoNaladit.text(), L"Klikněte na naladit...");
}

// Other programs look for the main window by its caption.
TEST_F(LumotuneFormTest, NoBoxBearsTheWindowsCaption) {
  EXPECT_EQ(window.caption(), L"Lumotune");
  EXPECT_NE(box_title, window.caption());
}

} // namespace
} // namespace lumotune::base
