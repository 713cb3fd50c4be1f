// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace lumotune::test {
namespace {

struct Menu final : player::MenuPort {
  explicit Menu(base::MenuTree& tree_used) : tree(tree_used) {}
  void open_favourite() override {}
  void open_tray() override {
    ++opened;
    volume_shown = tree.item(L"LT_Volume").visible;
    if (while_open)
      while_open();
  }
  base::MenuTree& tree;
  bool volume_shown = false;
  int opened = 0;
  std::function<void()> while_open;
};

struct TrayIconTest : testing::Test {
  SkinWorld w;
  Menu menu{w.menu_tree};
  TrayIconTest() {
    w.tray_icon.menu.bind(menu);
    w.menu_tree.item(L"LT_Volume").visible = false;
    w.form.TrayIcon.on_mouse_move = [this](const platform::MouseEvent& event) {
      w.tray_icon.TrayIcon_MouseMove(event);
    };
    w.window.set_visible(true);
  }
  void event(int message) {
    w.window.picture(L"TrayIcon")
        ->system_mouse_move({platform::MouseButton::none, static_cast<int>(message * w.window.twips_per_pixel), 0});
  }
};

TEST_F(TrayIconTest, ALeftClickHidesAndShowsTheWindow) {
  event(513);
  EXPECT_FALSE(w.window.visible());
  event(514);
  event(512);
  EXPECT_FALSE(w.window.visible());
  event(513);
  EXPECT_TRUE(w.window.visible());
}

TEST_F(TrayIconTest, ARightClickOpensTheMenuWithTheVolumeAndTheWindowInFront) {
  event(516);
  EXPECT_EQ(menu.opened, 0);
  event(517);
  EXPECT_EQ(menu.opened, 1);
  EXPECT_TRUE(menu.volume_shown);
  EXPECT_EQ(w.window.activated, 1);
}

TEST_F(TrayIconTest, TheMessageNumberIsRightAtEveryResolution) {
  for (const double twips : {15.0, 12.0, 10.0, 8.571428, 7.5, 5.0}) {
    w.window.twips_per_pixel = twips;
    const int before = menu.opened;
    event(517);
    event(516);
    event(518);
    EXPECT_EQ(menu.opened, before + 1) << twips;
  }
}

TEST_F(TrayIconTest, AnEventDuringAnotherIsIgnored) {
  menu.while_open = [this] { event(513); };
  event(517);
  EXPECT_TRUE(w.window.visible());
  menu.while_open = {};
  event(513);
  EXPECT_FALSE(w.window.visible()) << "the flag is cleared afterwards";
}

TEST_F(TrayIconTest, TheFlagIsClearedAlsoAfterAFailure) {
  menu.while_open = [] { throw std::runtime_error("menu"); };
  EXPECT_THROW(event(517), std::runtime_error);
  event(513);
  EXPECT_FALSE(w.window.visible());
}

TEST_F(TrayIconTest, TheTipFollowsTheTitle) {
  w.tray_icon.Tray();
  EXPECT_TRUE(w.tray.added);
  EXPECT_EQ(w.tray.tip, L"Lumotune");
  w.tray_icon.show_title(L"První - Lumotune");
  w.tray_icon.show_title(L"První - Lumotune");
  EXPECT_EQ(w.tray.tip, L"První - Lumotune");
  EXPECT_EQ(w.tray.modified, 1U) << "only when it changes";
  w.tray_icon.remove();
  EXPECT_FALSE(w.tray.added);
}

} // namespace
} // namespace lumotune::test
