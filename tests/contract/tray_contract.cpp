// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

struct TrayContract : testing::Test {
  HandBackend b;
};

TEST_F(TrayContract, TheIconIsThereFromAddingToRemoval) {
  EXPECT_FALSE(b.tray_icon_is_there());
  b.tray.add(L"Lumotune");
  EXPECT_TRUE(b.tray_icon_is_there());
  b.tray.modify(L"Lumotune: Pokusná skladba");
  EXPECT_TRUE(b.tray_icon_is_there());
  b.tray.remove();
  EXPECT_FALSE(b.tray_icon_is_there());
  b.tray.remove();
  b.tray.add(L"Lumotune");
  EXPECT_TRUE(b.tray_icon_is_there());
}

TEST_F(TrayContract, AnIconThatIsNotThereIsNotMadeByANewTip) {
  b.tray.modify(L"Skladba");
  EXPECT_FALSE(b.tray_icon_is_there());
  b.tray.add(L"Lumotune");
  b.tray.remove();
  b.tray.modify(L"Skladba");
  EXPECT_FALSE(b.tray_icon_is_there());
}

TEST_F(TrayContract, ALongTipIsNoError) {
  b.tray.add(std::wstring(5000, L'č'));
  EXPECT_TRUE(b.tray_icon_is_there());
  b.tray.modify(std::wstring(5000, L'ž'));
  EXPECT_TRUE(b.tray_icon_is_there());
}

} // namespace
} // namespace lumotune::contract
