// SPDX-License-Identifier: LGPL-2.1-or-later
// Pictures in other sizes: the colours stay, the edges stay, opacity stays true.
#include "platform/common/scale.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>

namespace lumotune::test {
namespace {

using platform::Pixels;
using platform::scaled;

Pixels flat(int width, int height, std::uint32_t value) {
  return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), value)};
}

int part(std::uint32_t pixel, unsigned shift) {
  return static_cast<int>(pixel >> shift & 0xffU);
}

TEST(Scale, TheSameSizeIsTheSamePicture) {
  Pixels picture = flat(3, 2, 0xff102030);
  picture.values[4] = 0x80400000;
  const Pixels same = scaled(picture, 3, 2);
  EXPECT_EQ(same.width, 3);
  EXPECT_EQ(same.height, 2);
  EXPECT_EQ(same.values, picture.values);
}

TEST(Scale, OneColourStaysThatColourUpToTheEdges) {
  for (const std::uint32_t colour : {0xff336699U, 0x80402010U, 0U, 0xffffffffU}) {
    for (const auto& [width, height] : {std::pair{10, 7}, std::pair{4, 3}, std::pair{1, 1}, std::pair{63, 40}}) {
      const Pixels result = scaled(flat(5, 4, colour), width, height);
      ASSERT_EQ(result.width, width);
      ASSERT_EQ(result.height, height);
      ASSERT_EQ(result.values, flat(width, height, colour).values) << std::hex << colour;
    }
  }
}

TEST(Scale, HalvesStayHalvesWhenThePictureGrows) {
  Pixels picture = flat(8, 1, 0xff000000);
  for (std::size_t x = 4; x < 8; ++x)
    picture.values[x] = 0xffffffff;
  const Pixels twice = scaled(picture, 16, 2);
  EXPECT_EQ(twice.values[0], 0xff000000U);
  EXPECT_EQ(twice.values[15], 0xffffffffU);
  EXPECT_LT(part(twice.values[7], 0), 128);
  EXPECT_GT(part(twice.values[8], 0), 127);
  EXPECT_NEAR(part(twice.values[7], 0) + part(twice.values[8], 0), 255, 2); // the border lies between them
}

TEST(Scale, WhenItShrinksEveryPixelHasItsShare) {
  Pixels picture = flat(64, 64, 0xff000000);
  for (std::size_t i = 0; i < picture.values.size(); i += 4)
    picture.values[i] = 0xffffffff; // every fourth column
  const Pixels small = scaled(picture, 16, 16);
  for (std::size_t i = 0; i < small.values.size(); ++i) {
    ASSERT_EQ(part(small.values[i], 24), 255);
    const bool inside = i % 16 > 0 && i % 16 < 15; // at the edge its column counts more than once
    ASSERT_NEAR(part(small.values[i], 8), 64, inside ? 4 : 24);
  }
}

TEST(Scale, NoColourIsStrongerThanItsOpacity) {
  Pixels picture = flat(16, 16, 0);
  for (std::size_t i = 0; i < picture.values.size(); ++i) {
    if (i % 3 == 0)
      picture.values[i] = 0xffff8000;
    else if (i % 7 == 0)
      picture.values[i] = 0x40004020;
  }
  for (const int side : {5, 24, 31, 40}) {
    for (const std::uint32_t pixel : scaled(picture, side, side).values) {
      for (const unsigned shift : {0U, 8U, 16U})
        ASSERT_LE(part(pixel, shift), part(pixel, 24));
    }
  }
}

} // namespace
} // namespace lumotune::test
