// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace lumotune::contract {
namespace {

using platform::Colour;
using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;
using platform::TwipsRect;

struct FramedWindowContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
};

TEST_F(FramedWindowContract, IsMadeHiddenWithAnInside) {
  EXPECT_FALSE(window->visible());
  EXPECT_FALSE(window->minimized());
  EXPECT_GT(window->client_width(), 0);
  EXPECT_GT(window->client_height(), 0);
}

TEST_F(FramedWindowContract, KeepsItsCaption) {
  window->set_caption(L"Seznam rádií & víc");
  EXPECT_EQ(window->caption(), L"Seznam rádií & víc");
}

TEST_F(FramedWindowContract, ASizeIsTheOuterOneAndIsTold) {
  int told = 0;
  int width_inside = 0;
  window->on_resize = [&] {
    ++told;
    width_inside = window->client_width();
  };
  window->resize(7500, 6000);
  EXPECT_GE(told, 1);
  EXPECT_EQ(window->rect().width, 7500);
  EXPECT_EQ(window->rect().height, 6000);
  EXPECT_EQ(width_inside, window->client_width());
  EXPECT_LT(window->client_width(), 7500);
  EXPECT_LT(window->client_height(), 6000);
  EXPECT_GT(window->client_width(), 7500 - 1500);
  EXPECT_GT(window->client_height(), 6000 - 2000);
}

TEST_F(FramedWindowContract, ASizeBelowNothingIsNoSize) {
  window->resize(-100, -100);
  EXPECT_GE(window->rect().width, 0);
  EXPECT_GE(window->client_height(), 0);
}

TEST_F(FramedWindowContract, NobodyMakesItSmallerThanItsSmallestSize) {
  window->set_visible(true);
  window->resize(7500, 6000);
  window->set_minimum(6000, 4500);
  EXPECT_EQ(window->rect().width, 7500) << "a smallest size alone changes nothing";
  window->resize(3000, 3000);
  EXPECT_EQ(window->rect().width, 6000);
  EXPECT_EQ(window->rect().height, 4500);
  window->set_minimum(0, 0);
  window->resize(15, 15);
  EXPECT_GT(window->rect().width, 15) << "the system has a smallest size of its own";
}

TEST_F(FramedWindowContract, ItStaysWithinTheWorkArea) {
  window->set_visible(true);
  b.loop.run_pending();
  const TwipsRect room = b.work_area(*window);
  window->resize(2000000000, 2000000000);
  constexpr int edge = 30; // a window manager may count its own edge otherwise
  EXPECT_TRUE(b.until([&] {
    const TwipsRect place = window->rect();
    return place.width <= room.width && place.height <= room.height && place.left >= room.left - edge &&
           place.top >= room.top - edge;
  }));
}

TEST_F(FramedWindowContract, ASizeGivenMeanwhileIsTakenWhenItComesBack) {
  window->set_minimum(3000, 3000);
  window->resize(6000, 4500);
  window->set_visible(true);
  b.pass(250); // a window manager has its say first
  b.maximize(*window);
  const int inside = window->client_width();
  EXPECT_GT(inside, 6000);
  window->resize(7500, 5250);
  EXPECT_EQ(window->client_width(), inside);
  EXPECT_EQ(window->rect().width, 7500);
  window->resize(15, 15);
  EXPECT_EQ(window->rect().width, 3000);
  window->resize(7500, 5250);
  b.restore(*window);
  EXPECT_TRUE(b.until([this] { return window->rect().width == 7500 && window->rect().height == 5250; }));
  b.minimize(*window);
  EXPECT_TRUE(window->minimized());
  EXPECT_EQ(window->client_width(), 0) << "an icon has no inside";
  window->resize(6300, 4800);
  EXPECT_TRUE(window->minimized());
  EXPECT_EQ(window->rect().width, 6300);
  int told = 0;
  window->on_resize = [&] { ++told; };
  window->set_visible(true);
  EXPECT_TRUE(b.until([&] { return !window->minimized() && told > 0; }));
  EXPECT_EQ(window->rect().width, 6300);
  EXPECT_EQ(window->rect().height, 4800);
  EXPECT_GE(told, 1);
}

TEST_F(FramedWindowContract, ASizeShowsNoHiddenWindow) {
  window->resize(6000, 4500);
  for (const bool icon : {false, true}) {
    window->set_visible(true);
    b.pass(250); // a window manager has its say first
    if (icon)
      b.minimize(*window);
    else
      b.maximize(*window);
    const int inside = window->client_width();
    window->set_visible(false);
    window->resize(icon ? 6300 : 7500, 5250);
    EXPECT_FALSE(window->visible()) << icon;
    b.pass(250);
    EXPECT_FALSE(window->visible()) << icon;
    EXPECT_EQ(window->minimized(), icon);
    EXPECT_EQ(window->client_width(), inside) << "the state is kept";
    EXPECT_EQ(window->rect().width, icon ? 6300 : 7500);
    window->set_visible(true);
    EXPECT_TRUE(b.until([this] { return window->visible() && !window->minimized(); })) << icon;
    b.restore(*window);
    EXPECT_TRUE(b.until([&] { return window->rect().width == (icon ? 6300 : 7500); })) << icon;
    EXPECT_EQ(window->rect().height, 5250);
  }
}

TEST_F(FramedWindowContract, ItsFrameIsKnownInEveryState) {
  window->resize(6000, 4500);
  window->set_visible(true);
  b.pass(100);
  const int frame = window->rect().height - window->client_height();
  EXPECT_EQ(window->frame_height(), frame);
  b.maximize(*window);
  EXPECT_EQ(window->frame_height(), frame);
  b.minimize(*window);
  EXPECT_EQ(window->frame_height(), frame);
}

// What an earlier smallest size asked for does not outlive it.
TEST_F(FramedWindowContract, ALowerSmallestSizeCountsAtOnceInEveryState) {
  for (const int state : {0, 1, 2}) {
    window->set_minimum(6000, 7500);
    window->resize(6000, 7500);
    window->set_visible(true);
    b.pass(100);
    if (state == 1)
      b.maximize(*window);
    if (state == 2)
      b.minimize(*window);
    window->set_minimum(6000, 4500);
    window->resize(6000, 4800);
    window->set_minimum(6000, 4650);
    b.restore(*window);
    EXPECT_EQ(window->rect().height, 4800) << state;
    window->resize(6000, 3000);
    EXPECT_EQ(window->rect().height, 4650) << state;
  }
}

TEST_F(FramedWindowContract, IsMovedBeforeItIsShownAndInEveryState) {
  window->resize(6000, 4500);
  window->move(3000, 2250);
  EXPECT_EQ(window->rect(), (platform::TwipsRect{3000, 2250, 6000, 4500}));
  window->set_visible(true);
  b.pass(250); // a window manager has its say first
  EXPECT_EQ(window->rect(), (platform::TwipsRect{3000, 2250, 6000, 4500}));
  window->move(1500, 1500);
  EXPECT_TRUE(b.until([&] { return window->rect() == platform::TwipsRect{1500, 1500, 6000, 4500}; }));
}

TEST_F(FramedWindowContract, ShowsAndHides) {
  window->set_visible(true);
  EXPECT_TRUE(b.until([&] { return window->visible(); }));
  window->activate();
  b.loop.run_pending();
  window->set_visible(false);
  EXPECT_FALSE(window->visible());
  window->activate();
  EXPECT_FALSE(window->visible()) << "coming to the front shows no hidden window";
}

TEST_F(FramedWindowContract, SeveralWindowsLiveBesideEachOther) {
  auto second = b.framed_windows.make(L"Druhe");
  second->set_caption(L"Druhé");
  window->set_caption(L"První");
  second->set_visible(true);
  window->set_visible(true);
  b.loop.run_pending();
  second.reset();
  b.loop.run_pending();
  EXPECT_TRUE(window->visible());
  EXPECT_EQ(window->caption(), L"První");
}

} // namespace
} // namespace lumotune::contract
