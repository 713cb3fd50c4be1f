// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/reading_order.h"

#include <gtest/gtest.h>

namespace lumotune::platform {
namespace {

using Order = std::vector<std::size_t>;

TEST(ReadingOrder, RowsComeBeforeColumnsAndNothingIsLeftOut) {
  EXPECT_EQ(reading_order({}), Order{});
  // Two rows, given in a jumble; buttons of one row need not begin at the same height.
  EXPECT_EQ(reading_order({{1140, 2700, 600, 600}, // volume
                           {240, 2580, 780, 780},  // play
                           {5730, 90, 300, 300},   // end
                           {240, 600, 5820, 1800}, // list
                           {4770, 90, 300, 300}}), // on top
            (Order{4, 2, 3, 1, 0}));
}

TEST(ReadingOrder, AColumnIsReadToItsEnd) {
  EXPECT_EQ(reading_order({{120, 120, 1500, 9000},   // a tree
                           {3000, 7500, 1500, 270},  // details below
                           {1650, 120, 1200, 9000},  // a list
                           {3000, 150, 1500, 270},   // details above
                           {120, 9300, 1500, 375}}), // below all
            (Order{0, 2, 3, 1, 4}));
}

TEST(ReadingOrder, NeighboursMayOverlapByAnEdge) {
  EXPECT_EQ(reading_order({{90, 80, 100, 100}, {0, 90, 100, 100}, {0, 0, 100, 100}}), (Order{2, 1, 0}));
}

TEST(ReadingOrder, WhatLiesOverEachOtherKeepsItsOrder) {
  EXPECT_EQ(reading_order({{10, 10, 0, 0}, {10, 10, 0, 0}, {10, 10, 0, 0}}), (Order{0, 1, 2}));
  EXPECT_EQ(reading_order({{0, 0, 500, 500}, {100, 100, 300, 300}}), (Order{0, 1}));
}

TEST(ReadingOrder, NumbersMayBeOfAnySize) {
  constexpr int most = 2147483647;
  EXPECT_EQ(reading_order({{most, most, most, most}, {-most, -most, most, most}}), (Order{1, 0}));
}

} // namespace
} // namespace lumotune::platform
