// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/view_keeper.h"

#include <gtest/gtest.h>

namespace lumotune::platform {
namespace {

// Two monitors side by side, the left one with a task bar above.
const std::vector<Monitor> two{{{0, 0, 1000, 800}, {0, 40, 1000, 800}}, {{1000, 0, 2000, 800}, {1000, 0, 2000, 800}}};
const std::vector<Monitor> one{two.front()};
constexpr std::int64_t piece = 30;

ScreenRect window_at(std::int64_t left, std::int64_t top) {
  return {left, top, left + 400, top + 300};
}

TEST(View, APieceOfOneMonitorIsEnoughToHold) {
  EXPECT_TRUE(can_be_held(window_at(970, 770), one, piece));
  EXPECT_FALSE(can_be_held(window_at(971, 0), one, piece));
  EXPECT_FALSE(can_be_held(window_at(0, 771), one, piece));
  EXPECT_TRUE(can_be_held(window_at(971, 0), two, piece));
  EXPECT_FALSE(can_be_held(window_at(0, 0), {}, piece));
}

TEST(View, HalfOfTheWindowIsMostOfIt) {
  EXPECT_TRUE(mostly_in_view(window_at(800, 0), one));
  EXPECT_FALSE(mostly_in_view(window_at(801, 0), one));
  EXPECT_TRUE(mostly_in_view(window_at(801, 0), two)) << "the monitors count together";
  EXPECT_TRUE(mostly_in_view({0, 0, 0, 0}, one)) << "a window without a size is nowhere out of view";
}

TEST(View, TheMonitorIsTheOneThatShowsMostOrIsNearest) {
  EXPECT_EQ(monitor_of(window_at(700, 0), two).whole.left, 0);
  EXPECT_EQ(monitor_of(window_at(900, 0), two).whole.left, 1000);
  EXPECT_EQ(monitor_of(window_at(-5000, 0), two).whole.left, 0);
  EXPECT_EQ(monitor_of(window_at(1700, 5000), two).whole.left, 1000);
}

TEST(View, AWindowGoesNoFurtherThanItMust) {
  const ScreenRect area{0, 40, 1000, 800};
  EXPECT_EQ(place_within(area, window_at(100, 100)), (ScreenPoint{100, 100}));
  EXPECT_EQ(place_within(area, window_at(900, 700)), (ScreenPoint{600, 500}));
  EXPECT_EQ(place_within(area, window_at(-50, 0)), (ScreenPoint{0, 40}));
  EXPECT_EQ(place_within(area, {900, 700, 3000, 3000}), (ScreenPoint{0, 40})) << "too large: from the area's corner";
}

TEST(View, AChosenPlaceStaysWhileItCanBeHeld) {
  ViewKeeper keeper;
  EXPECT_EQ(keeper.correction(window_at(960, 760), one, piece, 0), std::nullopt);
  EXPECT_EQ(keeper.correction(window_at(980, 760), one, piece, 0), (ScreenPoint{600, 500}));
  EXPECT_EQ(keeper.correction(window_at(980, 760), {}, piece, 0), std::nullopt) << "no monitor at all";
}

TEST(View, AfterAnotherScreenMostOfTheWindowHasToBeSeen) {
  ViewKeeper keeper;
  keeper.screen_changed();
  EXPECT_TRUE(keeper.has_changed());
  EXPECT_EQ(keeper.correction(window_at(960, 760), one, piece, 0), (ScreenPoint{600, 500}));
  EXPECT_FALSE(keeper.has_changed());
  EXPECT_EQ(keeper.correction(window_at(960, 760), one, piece, 0), std::nullopt) << "moved there by the user since";
  keeper.screen_changed();
  EXPECT_EQ(keeper.correction(window_at(800, 200), one, piece, 0), std::nullopt);
}

TEST(View, OtherMonitorsAreAnotherScreenAnotherTaskBarIsNot) {
  ViewKeeper keeper;
  keeper.look_at(two);
  keeper.look_at(two);
  EXPECT_FALSE(keeper.has_changed());
  std::vector<Monitor> other_bar = two;
  other_bar.front().work_area = {0, 0, 1000, 760};
  keeper.look_at(other_bar);
  EXPECT_FALSE(keeper.has_changed());
  EXPECT_EQ(keeper.correction(window_at(960, 760), one, piece, 0), (ScreenPoint{600, 500}));
}

TEST(View, AMonitorThatComesBackLaterIsAnotherScreen) {
  ViewKeeper keeper;
  keeper.look_at(two);
  keeper.look_at({});
  EXPECT_TRUE(keeper.has_changed());
  EXPECT_EQ(keeper.correction(window_at(1960, 760), {}, piece, 0), std::nullopt);
  EXPECT_EQ(keeper.correction(window_at(960, 760), one, piece, 0), (ScreenPoint{600, 500}))
      << "it still has to be seen";
}

TEST(View, ForSomeSecondsAfterACorrectionAnotherPlaceIsUndone) {
  constexpr std::uint32_t then = 0xffffff00; // the tick count wraps round meanwhile
  ViewKeeper keeper;
  EXPECT_FALSE(keeper.undoes(window_at(960, 760), one, 100)) << "nothing was corrected";
  keeper.screen_changed();
  EXPECT_NE(keeper.correction(window_at(960, 760), one, piece, then), std::nullopt);
  EXPECT_TRUE(keeper.undoes(window_at(960, 760), one, then + 9000));
  EXPECT_FALSE(keeper.undoes(window_at(700, 500), one, then + 9000)) << "half of it is seen";
  EXPECT_FALSE(keeper.undoes(window_at(960, 760), one, then + 10000));
}

} // namespace
} // namespace lumotune::platform
