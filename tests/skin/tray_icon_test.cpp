// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(TrayIconTest, TheTipFollowsTheTitle) {
  SkinWorld w;
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
