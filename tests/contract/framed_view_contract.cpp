// SPDX-License-Identifier: LGPL-2.1-or-later
// A framed window that no monitor shows, and when it comes into view.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <memory>

namespace lumotune::contract {
namespace {

using platform::TwipsRect;

constexpr int corner = 1050; // twips of the window that stay in sight, in both directions

struct FramedViewContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");

  FramedViewContract() { window->resize(6000, 4500); }
  void show() {
    window->set_visible(true);
    b.pass(250); // a window manager has its say first
  }
  // From its own size to a piece that can be taken hold of: wholly.
  [[nodiscard]] bool in_view() {
    constexpr int edge = 30; // a window manager may count its own edge otherwise
    const TwipsRect place = window->rect();
    const TwipsRect room = b.work_area(*window);
    return place.left >= room.left - edge && place.top >= room.top - edge &&
           place.left + place.width <= room.left + room.width + edge &&
           place.top + place.height <= room.top + room.height + edge;
  }
  void expect_to_come_into_view() {
    EXPECT_TRUE(b.until([this] { return in_view(); })) << window->rect().left << ", " << window->rect().top;
    EXPECT_EQ(window->rect().width, 6000);
    EXPECT_EQ(window->rect().height, 4500);
  }
};

TEST_F(FramedViewContract, ItComesIntoViewWhenItIsShown) {
  b.move_away(*window);
  EXPECT_FALSE(in_view());
  window->set_visible(true);
  expect_to_come_into_view();
}

TEST_F(FramedViewContract, ItComesIntoViewWhenTheMonitorsChange) {
  show();
  b.move_away(*window);
  EXPECT_FALSE(in_view());
  b.monitors_change(*window);
  expect_to_come_into_view();
}

TEST_F(FramedViewContract, AHiddenOneStaysWhereItIsUntilItIsShown) {
  show();
  window->set_visible(false);
  b.move_away(*window);
  b.monitors_change(*window);
  EXPECT_FALSE(window->visible());
  EXPECT_FALSE(in_view());
  window->set_visible(true);
  expect_to_come_into_view();
}

TEST_F(FramedViewContract, ItComesIntoViewWhenTheUserRestoresIt) {
  for (const bool icon : {true, false}) {
    show();
    b.move_away(*window);
    if (icon)
      b.minimize(*window);
    else
      b.maximize(*window);
    b.restore(*window);
    expect_to_come_into_view();
  }
}

TEST_F(FramedViewContract, APlaceThatCanBeReachedIsLeftAlone) {
  show();
  const TwipsRect before = window->rect();
  b.monitors_change(*window);
  b.minimize(*window);
  b.restore(*window);
  EXPECT_TRUE(b.until([&] { return window->rect() == before; }));
  b.pass(250);
  EXPECT_EQ(window->rect(), before);
}

// Enough to take hold of, but nothing that anybody has chosen.
TEST_F(FramedViewContract, ACornerThatOtherMonitorsLeaveInSightIsNotEnough) {
  show();
  b.move_to_corner(*window, corner);
  EXPECT_FALSE(in_view());
  b.monitors_change(*window);
  expect_to_come_into_view();
}

TEST_F(FramedViewContract, ACornerLeftWhileItWasHiddenIsNotEnoughWhenItIsShown) {
  show();
  window->set_visible(false);
  b.move_to_corner(*window, corner);
  b.monitors_change(*window);
  EXPECT_FALSE(in_view());
  window->set_visible(true);
  expect_to_come_into_view();
}

TEST_F(FramedViewContract, ACornerThatTheUserHasChosenIsLeftAlone) {
  show();
  b.move_to_corner(*window, corner);
  const TwipsRect before = window->rect();
  b.minimize(*window);
  b.restore(*window);
  EXPECT_TRUE(b.until([&] { return window->rect() == before; })) << window->rect().left << ", " << window->rect().top;
  b.pass(250);
  EXPECT_EQ(window->rect(), before);
}

// Where half of it is seen it stays, whatever the monitors are.
TEST_F(FramedViewContract, MostOfItInSightIsEnough) {
  show();
  b.move_to_corner(*window, 4200);
  const TwipsRect before = window->rect();
  b.monitors_change(*window);
  b.pass(250);
  EXPECT_EQ(window->rect(), before);
}

} // namespace
} // namespace lumotune::contract
