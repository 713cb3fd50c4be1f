// SPDX-License-Identifier: LGPL-2.1-or-later
// Pictures of skins: what a decoder must read, and what it must refuse.
#include "platform/common/gif.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

using platform::decode_gif;
using platform::Pixels;

constexpr int max_side = 4096;
constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t green = 0xff00ff00;
constexpr std::uint32_t blue = 0xff0000ff;
constexpr std::uint32_t white = 0xffffffff;

// Seventeen by nineteen pixels by the rule of `colour_at`, packed by an encoder that is not ours, row after row and
// interlaced.
const char* const plain_hex =
    "47494638396111001300f20000d8271efc0323b44b19906f146c930f48b70a24db0500ff0021f90400000000002c00000000110013000003"
    "75780436514231078f3037e3ad4509830110d6178e65201086cabaedda0e44611c0120d036ae8786a0704814050e86026120001c93cb2641"
    "10304cab572bd52a693c220b6fa5c329674c229207944ec960f037ef96dbd5e8bfa27ee8442a997d508059845b845d1460135f16668e676c"
    "286b276a0509003b";
const char* const interlaced_hex =
    "47494638396111001300f20000d8271efc0323b44b19906f146c930f48b70a24db0500ff0021f90400000000002c00000000110013004003"
    "77780436514231078f6c2f2e5c2fd553760c44611c01209026aa0eec99aea5fc16c16000c421e03a9eaf00081c0c05c240503c269700e0ae"
    "f7cb4d874da49269d442a5c26a900a3108cce8b33a1d10100ced771cee861beef8bcfe4e10040c7d7f81807e8469876b6a738b758b7b8f79"
    "8392859388966a09003b";

std::string bytes_of(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return bytes;
}

std::uint32_t colour_at(int x, int y) {
  const auto value = static_cast<std::uint32_t>((x * 3 + y * 5 + x * y) % 8);
  return 0xff000000U | value * 36 << 16U | (255 - value * 36) << 8U | value * 5;
}

constexpr unsigned start = 4; // the code that begins a picture of four colours
constexpr unsigned end = 5;

// Writes pictures code by code.
class Writer {
public:
  Writer(int width, int height) : bytes_("GIF89a") {
    word(width);
    word(height);
    bytes_ += std::string("\x81\0\0", 3) + std::string("\xff\0\0\0\xff\0\0\0\xff\xff\xff\xff", 12);
  }
  void word(int value) { bytes_.append({static_cast<char>(value & 255), static_cast<char>(value >> 8)}); }
  Writer& control(bool clear, char index) {
    bytes_ += std::string("\x21\xf9\x04", 3) + static_cast<char>(clear ? 1 : 0) + std::string(2, '\0') + index + '\0';
    return *this;
  }
  // The codes widen as the dictionary grows, by one entry with every code but the first one after a start.
  Writer& frame(int left, int top, int width, int height, const std::vector<unsigned>& codes) {
    bytes_ += ',';
    for (const int value : {left, top, width, height})
      word(value);
    bytes_ += std::string("\0\2", 2);
    std::string packed;
    std::uint64_t bits = 0;
    unsigned held = 0;
    unsigned wide = 3;
    unsigned entries = 5;
    for (const unsigned code : codes) {
      bits |= std::uint64_t{code} << held;
      for (held += wide; held >= 8; held -= 8, bits >>= 8)
        packed += static_cast<char>(bits & 255);
      entries = code == start ? 5 : std::min(entries + 1, 4096U);
      wide = entries < 8 ? 3 : static_cast<unsigned>(std::bit_width(std::min(entries, 4095U)));
    }
    packed += static_cast<char>(bits);
    for (std::size_t at = 0; at < packed.size(); at += 255) {
      const std::string piece = packed.substr(at, 255);
      bytes_ += static_cast<char>(piece.size());
      bytes_ += piece;
    }
    bytes_ += '\0';
    return *this;
  }
  [[nodiscard]] std::string done() const { return bytes_ + ';'; }

private:
  std::string bytes_;
};

void expect_pattern(const std::string& bytes) {
  const auto picture = decode_gif(bytes, max_side);
  ASSERT_TRUE(picture);
  ASSERT_EQ(picture->width, 17);
  ASSERT_EQ(picture->height, 19);
  ASSERT_EQ(picture->values.size(), 17U * 19U);
  for (int y = 0; y < 19; ++y) {
    for (int x = 0; x < 17; ++x)
      ASSERT_EQ(picture->values[static_cast<std::size_t>(y * 17 + x)], colour_at(x, y)) << x << ' ' << y;
  }
}

TEST(Gif, PixelsComeOutAsTheyWentIn) {
  expect_pattern(bytes_of(plain_hex));
}

TEST(Gif, AnInterlacedPictureHasItsRowsInOrder) {
  expect_pattern(bytes_of(interlaced_hex));
}

TEST(Gif, EveryPieceThatIsCutOffBeforeTheLastPixelIsRefused) {
  const std::string whole = bytes_of(plain_hex);
  // The last pixel's code ends three bytes before the file does: the end code, the end of the pieces and of the file.
  for (std::size_t length = 0; length + 4 < whole.size(); ++length)
    EXPECT_FALSE(decode_gif(whole.substr(0, length), max_side)) << length;
  EXPECT_TRUE(decode_gif(whole.substr(0, whole.size() - 2), max_side));
}

TEST(Gif, AClearColourLetsThroughWhatLiesBehind) {
  const auto shown = decode_gif(Writer(2, 1).control(true, 1).frame(0, 0, 2, 1, {start, 0, 1, end}).done(), max_side);
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->values, (std::vector<std::uint32_t>{red, 0}));
  const auto opaque = decode_gif(Writer(2, 1).control(false, 1).frame(0, 0, 2, 1, {start, 0, 1, end}).done(), max_side);
  ASSERT_TRUE(opaque);
  EXPECT_EQ(opaque->values, (std::vector<std::uint32_t>{red, green}));
}

TEST(Gif, OfAMovingPictureTheFirstOneIsTaken) {
  const auto picture =
      decode_gif(Writer(1, 1).frame(0, 0, 1, 1, {start, 2, end}).frame(0, 0, 1, 1, {start, 3, end}).done(), max_side);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->values, (std::vector<std::uint32_t>{blue}));
}

TEST(Gif, APictureSmallerThanTheScreenLiesInItsPlace) {
  const auto picture = decode_gif(Writer(3, 2).frame(1, 1, 1, 1, {start, 3, end}).done(), max_side);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->values, (std::vector<std::uint32_t>{0, 0, 0, 0, white, 0}));
}

TEST(Gif, WhatLiesBeyondTheScreenIsCutOff) {
  const auto picture = decode_gif(Writer(2, 2).frame(1, 1, 2, 2, {start, 0, 1, 2, 3, end}).done(), max_side);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->values, (std::vector<std::uint32_t>{0, 0, 0, red}));
  const auto beside = decode_gif(Writer(1, 1).frame(7, 9, 1, 1, {start, 0, end}).done(), max_side);
  ASSERT_TRUE(beside);
  EXPECT_EQ(beside->values, (std::vector<std::uint32_t>{0}));
}

TEST(Gif, AFullDictionaryServesOnUntilTheNextStart) {
  std::vector<unsigned> codes = {start};
  std::vector<std::uint32_t> pixels;
  constexpr std::uint32_t colours[] = {red, green, blue, white};
  for (unsigned i = 0; i < 100 * 60; ++i) {
    const unsigned index = (i * 7 + i / 9) % 4;
    codes.push_back(index);
    pixels.push_back(colours[index]);
  }
  codes.push_back(end);
  const auto picture = decode_gif(Writer(100, 60).frame(0, 0, 100, 60, codes).done(), max_side);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->values, pixels);
}

TEST(Gif, ACodeMayStandForThePieceThatItEnds) {
  // After the first red the dictionary holds "red red" as code 6, while it is being made.
  const auto picture = decode_gif(Writer(3, 1).frame(0, 0, 3, 1, {start, 0, 6, end}).done(), max_side);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->values, (std::vector<std::uint32_t>{red, red, red}));
}

TEST(Gif, CodesThatStandForNothingAreRefused) {
  EXPECT_FALSE(decode_gif(Writer(3, 1).frame(0, 0, 3, 1, {start, 0, 7, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(3, 1).frame(0, 0, 3, 1, {start, 6, 0, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(3, 1).frame(0, 0, 3, 1, {start, 0, 1, end}).done(), max_side));           // too few
  EXPECT_FALSE(decode_gif(Writer(4, 1).frame(0, 0, 4, 1, {start, 0, 1, start, 6, end}).done(), max_side)); // forgotten
}

TEST(Gif, PixelsBeyondTheLastOneArePassedOver) {
  EXPECT_TRUE(decode_gif(Writer(1, 1).frame(0, 0, 1, 1, {start, 0, 1, 2, end}).done(), max_side));
  EXPECT_TRUE(decode_gif(Writer(2, 1).frame(0, 0, 2, 1, {start, 0, 6, end}).done(), max_side));
}

TEST(Gif, SidesOfNothingOrTooManyPixelsAreRefused) {
  EXPECT_FALSE(decode_gif(Writer(0, 1).frame(0, 0, 1, 1, {start, 0, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(1, 0).frame(0, 0, 1, 1, {start, 0, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(1, 1).frame(0, 0, 0, 1, {start, 0, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(1, 1).frame(0, 0, 65535, 65535, {start, 0, end}).done(), max_side));
  EXPECT_FALSE(decode_gif(Writer(2, 1).frame(0, 0, 3, 1, {start, 0, 0, 0, end}).done(), 2));
  EXPECT_FALSE(decode_gif(Writer(2, 1).frame(0, 0, 1, 3, {start, 0, 0, 0, end}).done(), 2));
  EXPECT_TRUE(decode_gif(Writer(2, 1).frame(0, 0, 1, 1, {start, 0, end}).done(), 2));
  EXPECT_FALSE(decode_gif(Writer(3, 1).frame(0, 0, 1, 1, {start, 0, end}).done(), 2));
}

TEST(Gif, WhatIsNoGifIsRefused) {
  EXPECT_FALSE(decode_gif("", max_side));
  EXPECT_FALSE(decode_gif("<!DOCTYPE html>", max_side));
  EXPECT_FALSE(decode_gif(std::string(1000, '\0'), max_side));
  std::string other = Writer(1, 1).frame(0, 0, 1, 1, {start, 0, end}).done();
  EXPECT_TRUE(decode_gif(other, max_side));
  other.replace(0, 6, "GIF99a");
  EXPECT_FALSE(decode_gif(other, max_side));
  EXPECT_FALSE(decode_gif(Writer(1, 1).done(), max_side)); // no picture in it
}

TEST(Gif, IsBoundedByItsPixelsToo) {
  const std::string bytes = bytes_of(plain_hex); // 17 by 19
  EXPECT_TRUE(decode_gif(bytes, max_side, 17 * 19));
  EXPECT_FALSE(decode_gif(bytes, max_side, 17 * 19 - 1));
  EXPECT_EQ(platform::gif_pixels(bytes), 17 * 19);
  EXPECT_EQ(platform::gif_pixels(bytes.substr(0, platform::gif_header_length)), 17 * 19);
  EXPECT_EQ(platform::gif_pixels(bytes.substr(0, platform::gif_header_length - 1)), 0);
  EXPECT_EQ(platform::gif_pixels("GIF88a\1\1\1\1"), 0);
  EXPECT_EQ(platform::gif_pixels("GIF89a\xff\xff\xff\xff"), std::int64_t{65535} * 65535);
}

TEST(Gif, APictureLargerThanItsScreenIsBoundedAsWell) {
  Writer writer(2, 2);
  const std::string small = writer.frame(0, 0, 2, 2, {start, 1, 1, 1, 1, end}).done();
  EXPECT_TRUE(decode_gif(small, max_side, 4));
  Writer larger(2, 2);
  EXPECT_FALSE(decode_gif(larger.frame(0, 0, 4000, 4000, {start, 1, end}).done(), max_side, 8'500'000));
}

} // namespace
} // namespace lumotune::test
