// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/menus/menu_world.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace lumotune::test {
namespace {

struct TrayEventsTest : testing::Test {
  MenuWorld w;
  TrayEventsTest() { w.window.set_visible(true); }
  void event(int message) {
    w.window.picture(L"TrayIcon")
        ->system_mouse_move({platform::MouseButton::none, static_cast<int>(message * w.window.twips_per_pixel), 0});
  }
};

TEST_F(TrayEventsTest, ALeftClickHidesAndShowsTheWindow) {
  event(513);
  EXPECT_FALSE(w.window.visible());
  event(514);
  event(512);
  EXPECT_FALSE(w.window.visible());
  event(513);
  EXPECT_TRUE(w.window.visible());
}

TEST_F(TrayEventsTest, ARightClickOpensTheMenuWithTheVolumeAndTheWindowInFront) {
  event(516);
  EXPECT_EQ(w.popups.opened.size(), 0U);
  event(517);
  EXPECT_EQ(w.popups.opened.size(), 1U);
  EXPECT_TRUE(w.shown(L"LT_Volume").visible);
  EXPECT_EQ(w.window.activated, 1);
}

TEST_F(TrayEventsTest, TheMessageNumberIsRightAtEveryResolution) {
  for (const double twips : {15.0, 12.0, 10.0, 8.571428, 7.5, 5.0}) {
    w.window.twips_per_pixel = twips;
    const std::size_t before = w.popups.opened.size();
    event(517);
    event(516);
    event(518);
    EXPECT_EQ(w.popups.opened.size(), before + 1) << twips;
  }
}

TEST_F(TrayEventsTest, AnEventDuringAnotherIsIgnored) {
  w.popups.while_open = [this] { event(513); };
  event(517);
  EXPECT_TRUE(w.window.visible());
  w.popups.while_open = {};
  event(513);
  EXPECT_FALSE(w.window.visible()) << "the flag is cleared afterwards";
}

TEST_F(TrayEventsTest, TheFlagIsClearedAlsoAfterAFailure) {
  w.popups.while_open = [] { throw std::runtime_error("menu"); };
  EXPECT_THROW(event(517), std::runtime_error);
  event(513);
  EXPECT_FALSE(w.window.visible());
}

} // namespace
} // namespace lumotune::test
