// SPDX-License-Identifier: LGPL-2.1-or-later
// Pictures of skins at the borders of their format: palettes, widths of codes, interlaced rows, extensions.
#include "platform/common/gif.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

using platform::decode_gif;

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t green = 0xff00ff00;
constexpr std::uint32_t blue = 0xff0000ff;
constexpr std::uint32_t white = 0xffffffff;
const std::string four_colours("\xff\0\0\0\xff\0\0\0\xff\xff\xff\xff", 12);

struct Code {
  unsigned value;
  unsigned width; // bits
};

std::string packed(const std::vector<Code>& codes) {
  std::string bytes;
  std::uint64_t bits = 0;
  unsigned held = 0;
  for (const Code& code : codes) {
    bits |= std::uint64_t{code.value} << held;
    for (held += code.width; held >= 8; held -= 8, bits >>= 8)
      bytes += static_cast<char>(bits & 255);
  }
  if (held > 0)
    bytes += static_cast<char>(bits);
  return bytes;
}

std::string word(int value) {
  return {static_cast<char>(value & 255), static_cast<char>(value >> 8)};
}

// A file of one picture as large as its screen.
struct File {
  int width = 1;
  int height = 1;
  unsigned flags = 0x81; // of the screen: four colours
  std::string palette = four_colours;
  std::string extension;
  unsigned picture_flags = 0;
  std::string picture_palette;
  unsigned smallest = 2;
  std::string pixels;

  [[nodiscard]] std::string bytes() const {
    return "GIF89a" + word(width) + word(height) + static_cast<char>(flags) + std::string(2, '\0') + palette +
           extension + ',' + word(0) + word(0) + word(width) + word(height) + static_cast<char>(picture_flags) +
           picture_palette + static_cast<char>(smallest) + static_cast<char>(pixels.size()) + pixels +
           std::string("\0;", 2);
  }
  [[nodiscard]] std::vector<std::uint32_t> values(int max_side = 4096) const {
    const auto picture = decode_gif(bytes(), max_side);
    return picture ? picture->values : std::vector<std::uint32_t>();
  }
};

using Values = std::vector<std::uint32_t>;

TEST(GifEdges, ThePicturesOwnPaletteCounts) {
  File file;
  file.width = 4;
  file.picture_flags = 0x80; // two colours, the others are none
  file.picture_palette = std::string("\xff\xff\xff\0\0\xff", 6);
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {5, 4}});
  EXPECT_EQ(file.values(), (Values{white, blue, 0, 0}));
  file.picture_flags = 0x81; // four of its own
  file.picture_palette = std::string("\xff\xff\xff\0\0\xff\0\xff\0\xff\0\0", 12);
  EXPECT_EQ(file.values(), (Values{white, blue, green, red}));
}

TEST(GifEdges, WithoutAPaletteNothingIsPainted) {
  File file;
  file.width = 2;
  file.flags = 0x01; // a size, but no palette
  file.palette.clear();
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {5, 3}});
  EXPECT_EQ(file.values(), (Values{0, 0}));
}

TEST(GifEdges, APaletteDoesNotMakeAPictureInterlaced) {
  File file;
  file.height = 5;
  file.picture_flags = 0x81;
  file.picture_palette = four_colours;
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {0, 4}, {5, 4}});
  EXPECT_EQ(file.values(), (Values{red, green, blue, white, red}));
}

TEST(GifEdges, InterlacedPicturesMayBeLow) {
  const std::vector<Values> expected = {{red}, {red, green}, {red, blue, green}, {red, blue, green, white}};
  File file;
  file.picture_flags = 0x40;
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {5, 4}});
  for (file.height = 1; file.height <= 4; ++file.height)
    EXPECT_EQ(file.values(), expected[static_cast<std::size_t>(file.height - 1)]) << file.height;
}

TEST(GifEdges, CodesAreOneToEightBitsAtFirst) {
  for (unsigned smallest = 0; smallest <= 9; ++smallest) {
    const unsigned clear = 1U << smallest;
    File file;
    file.smallest = smallest;
    file.pixels = packed({{clear, smallest + 1}, {1, smallest + 1}, {clear + 1, smallest + 1}});
    EXPECT_EQ(file.values(), smallest >= 1 && smallest <= 8 ? Values{green} : Values()) << smallest;
  }
}

TEST(GifEdges, APictureNeedsNoCodeToBeginWith) {
  File file;
  file.width = 3;
  file.pixels = packed({{1, 3}, {6, 3}, {5, 3}});
  EXPECT_EQ(file.values(), (Values{green, green, green}));
}

TEST(GifEdges, CodesAreNarrowAgainAfterANewStart) {
  File file;
  file.width = 6;
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {4, 4}, {3, 3}, {6, 3}, {5, 3}});
  EXPECT_EQ(file.values(), (Values{red, green, blue, white, white, white}));
}

TEST(GifEdges, TheLastBitsMayEndWithTheirByte) {
  File file;
  file.smallest = 7;
  file.pixels = packed({{0x80, 8}, {1, 8}});
  EXPECT_EQ(file.values(), Values{green});
}

TEST(GifEdges, OtherExtensionsMakeNothingClear) {
  File file;
  file.pixels = packed({{4, 3}, {0, 3}, {5, 3}});
  file.extension = std::string("\x21\xfe\x04\x01\0\0\0\0", 8); // a remark
  EXPECT_EQ(file.values(), Values{red});
  file.extension = std::string("\x21\xf9\x03\x01\0\0\0", 7); // too short
  EXPECT_EQ(file.values(), Values{red});
  file.extension = std::string("\x21\xf9\x04\x01\0\0\0\0", 8);
  EXPECT_EQ(file.values(), Values{0});
}

TEST(GifEdges, TheLongestSideIsAllowed) {
  File file;
  file.width = 2;
  file.height = 2;
  file.pixels = packed({{4, 3}, {0, 3}, {1, 3}, {2, 3}, {3, 4}, {5, 4}});
  EXPECT_EQ(file.values(2), (Values{red, green, blue, white}));
  EXPECT_EQ(file.values(1), Values());
}

} // namespace
} // namespace lumotune::test
