// SPDX-License-Identifier: LGPL-2.1-or-later
// Every look of a button comes from its one picture, so that skins with one picture a button have them all.
#include "platform/common/button_look.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

namespace lumotune::test {
namespace {

using platform::ButtonState;
using platform::Pixels;

constexpr std::uint32_t dark = 0xff16222c;
constexpr std::uint32_t pale = 0xfff2f2ea;
constexpr std::uint32_t accent = 0xff3ddbb4;
constexpr int side = 24;

Pixels flat(std::uint32_t value, int width = side, int height = side) {
  return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), value)};
}

std::uint32_t& at(Pixels& pixels, int x, int y) {
  return pixels.values[static_cast<std::size_t>(y * pixels.width + x)];
}

int luminance(std::uint32_t pixel) {
  const auto part = [&](unsigned shift) { return static_cast<int>(pixel >> shift & 0xffU); };
  return (part(16) * 54 + part(8) * 183 + part(0) * 19) / 256;
}

int part(std::uint32_t pixel, unsigned shift) {
  return static_cast<int>(pixel >> shift & 0xffU);
}

// A bar across the middle: a sign, no body.
Pixels sign(std::uint32_t colour = 0xffb9c8d2) {
  Pixels picture = flat(0);
  for (int y = 11; y < 13; ++y) {
    for (int x = 6; x < 18; ++x)
      at(picture, x, y) = colour;
  }
  return picture;
}

constexpr int wide = 32; // of the disc's picture, which leaves three pixels free on each side

Pixels disc() {
  constexpr double radius = 13;
  Pixels picture = flat(0, wide, wide);
  for (int y = 0; y < wide; ++y) {
    for (int x = 0; x < wide; ++x) {
      const double dx = x + 0.5 - wide / 2.0;
      const double dy = y + 0.5 - wide / 2.0;
      if (dx * dx + dy * dy < radius * radius)
        at(picture, x, y) = accent;
    }
  }
  return picture;
}

Pixels shown(const Pixels& picture, const ButtonState& state, std::uint32_t behind = dark, double scale = 1) {
  Pixels target = flat(behind, picture.width, picture.height);
  paint_button(target, picture, state, scale);
  return target;
}

constexpr ButtonState hovered{.hovered = true};
constexpr ButtonState pressed{.hovered = true, .pressed = true};
constexpr ButtonState focused{.focused = true};
constexpr ButtonState disabled{.enabled = false};

TEST(ButtonLook, TheNormalOneIsThePictureAlone) {
  Pixels picture = sign();
  at(picture, 3, 3) = 0x80404040; // half of (128, 128, 128)
  Pixels normal = shown(picture, {});
  EXPECT_EQ(at(normal, 0, 0), dark);
  EXPECT_EQ(at(normal, 8, 11), 0xffb9c8d2U);
  EXPECT_EQ(at(normal, 3, 3), 0xff4b5156U);
}

TEST(ButtonLook, UnderThePointerASignHasAQuietGroundWithRoundCorners) {
  Pixels on_dark = shown(sign(), hovered);
  const int shade = luminance(at(on_dark, 12, 3)) - luminance(dark);
  EXPECT_GT(shade, 12);
  EXPECT_LT(shade, 50) << "quiet";
  EXPECT_EQ(at(on_dark, 0, 0), dark) << "the corner is round";
  EXPECT_GT(luminance(at(on_dark, 12, 0)), luminance(dark)) << "up to its edges";
  EXPECT_EQ(at(on_dark, 8, 11), 0xffb9c8d2U) << "the sign itself stays";
  Pixels on_pale = shown(sign(0xff202020), hovered, pale);
  EXPECT_LT(luminance(at(on_pale, 12, 3)), luminance(pale) - 12) << "darker where the window is light";
}

TEST(ButtonLook, UnderThePointerABodyChangesAndItsSurroundingsDoNot) {
  Pixels on = shown(disc(), hovered);
  EXPECT_GT(luminance(at(on, 16, 16)), luminance(accent) + 5);
  EXPECT_EQ(at(on, 1, 1), dark);
  Pixels white_one = shown(flat(0xffffffff), hovered);
  EXPECT_LT(luminance(at(white_one, 12, 12)), 240) << "white cannot get lighter";
}

TEST(ButtonLook, PressedItIsDarkerAndLower) {
  Pixels normal = shown(sign(), {});
  Pixels down = shown(sign(), pressed);
  EXPECT_EQ(at(normal, 8, 13), dark);
  EXPECT_GT(luminance(at(down, 8, 13)), luminance(dark) + 60) << "one pixel lower";
  EXPECT_LT(luminance(at(down, 8, 12)), luminance(at(normal, 8, 12)) - 20) << "darker";
  EXPECT_LT(luminance(at(down, 12, 3)), luminance(dark)) << "its ground too";
  Pixels twice = shown(sign(), pressed, dark, 2);
  EXPECT_GT(luminance(at(twice, 8, 14)), luminance(dark) + 60) << "two pixels at twice the resolution";
  Pixels plate = shown(flat(accent), pressed);
  EXPECT_LT(luminance(at(plate, 12, 0)), luminance(accent) - 20) << "no gap above a picture that fills its area";
  EXPECT_GT(luminance(at(plate, 12, 0)), luminance(dark) + 60);
}

TEST(ButtonLook, DisabledItIsGreyAndFainterWhateverThePointerDoes) {
  Pixels off = shown(disc(), disabled);
  const std::uint32_t middle = at(off, 16, 16);
  EXPECT_LT(luminance(middle), luminance(accent) - 60);
  EXPECT_GT(luminance(middle), luminance(dark) + 20) << "it can still be made out";
  EXPECT_LT(part(middle, 8) - part(middle, 16), 25) << "its colour is gone";
  const ButtonState all{.enabled = false, .hovered = true, .pressed = true, .focused = true, .closes = true};
  EXPECT_EQ(shown(disc(), all).values, off.values);
}

TEST(ButtonLook, ANeutralOneLosesItsRedAndNothingElse) {
  Pixels picture = sign(0xffff7a7a);
  at(picture, 8, 11) = 0xffb9c8d2;
  Pixels off = shown(picture, {.neutral = true});
  EXPECT_EQ(part(at(off, 10, 11), 16), part(at(off, 10, 11), 0));
  EXPECT_EQ(luminance(at(off, 10, 11)), luminance(0xffff7a7a));
  EXPECT_EQ(at(off, 8, 11), 0xffb9c8d2U);
  EXPECT_EQ(at(off, 0, 0), dark);
  EXPECT_EQ(shown(disc(), {.neutral = true}).values, shown(disc(), {}).values) << "an accent is not red";
  Pixels under = shown(picture, {.hovered = true, .neutral = true});
  EXPECT_GT(luminance(at(under, 12, 3)), luminance(dark)) << "it can still be pressed";
}

TEST(ButtonLook, WhatClosesHasARedGroundAndAWhiteSign) {
  ButtonState state = hovered;
  state.closes = true;
  Pixels close = shown(sign(0xff202020), state, pale);
  EXPECT_EQ(at(close, 12, 3), 0xffc42b1cU);
  EXPECT_EQ(at(close, 8, 11), 0xffffffffU);
  EXPECT_EQ(at(close, 0, 0), pale);
  state.pressed = true;
  Pixels down = shown(sign(0xff202020), state, pale);
  EXPECT_LT(luminance(at(down, 12, 3)), luminance(0xffc42b1c)) << "a darker red";
  EXPECT_GT(part(at(down, 12, 3), 16), 3 * part(at(down, 12, 3), 8));
  const Pixels at_rest = shown(sign(), {.closes = true});
  EXPECT_EQ(at_rest.values, shown(sign(), {}).values);
  ButtonState plate = hovered;
  plate.closes = true;
  Pixels filled = shown(flat(0xff808080), plate);
  EXPECT_GT(part(at(filled, 12, 12), 16), 2 * part(at(filled, 12, 12), 8)) << "a picture that fills its area reddens";
}

TEST(ButtonLook, TheRingOfASignRunsAlongTheEdge) {
  Pixels ring = shown(sign(), focused);
  EXPECT_EQ(at(ring, 12, 0), 0xffffffffU);
  EXPECT_EQ(at(ring, 12, 1), 0xffffffffU);
  EXPECT_EQ(at(ring, 12, 3), dark);
  EXPECT_EQ(at(ring, 0, 0), dark) << "round corners";
  EXPECT_EQ(at(ring, 23, 12), 0xffffffffU);
  Pixels on_pale = shown(sign(0xff202020), focused, pale);
  EXPECT_EQ(at(on_pale, 12, 0), 0xff000000U);
  Pixels twice = shown(sign(), focused, dark, 2);
  EXPECT_EQ(at(twice, 12, 3), 0xffffffffU);
  EXPECT_EQ(at(twice, 12, 5), dark);
}

TEST(ButtonLook, TheRingOfABodyFollowsItsOutline) {
  Pixels ring = shown(disc(), focused); // which leaves three pixels free
  EXPECT_EQ(at(ring, 16, 3), accent);
  EXPECT_EQ(at(ring, 16, 2), 0xffffffffU);
  EXPECT_EQ(at(ring, 16, 1), 0xffffffffU);
  EXPECT_EQ(at(ring, 16, 0), dark) << "it is not cut off";
  for (const int corner : {0, wide - 1})
    EXPECT_EQ(at(ring, corner, corner), dark) << "nothing of a rectangle";
  EXPECT_EQ(at(ring, 16, 16), accent);
}

TEST(ButtonLook, ABodyWithoutRoomAroundItHasItsRingInside) {
  Pixels plate = shown(flat(accent), focused);
  EXPECT_EQ(at(plate, 0, 0), 0xff000000U);
  EXPECT_EQ(at(plate, 12, 1), 0xff000000U);
  EXPECT_EQ(at(plate, 12, 2), accent);
  Pixels large = shown(flat(accent, 600, 20), focused);
  EXPECT_EQ(at(large, 300, 1), 0xff000000U) << "one too large to be outlined too";
  EXPECT_EQ(at(large, 300, 2), accent);
}

TEST(ButtonLook, APixelAndNothingAreNoDanger) {
  for (const ButtonState& state : {hovered, pressed, focused, disabled}) {
    Pixels one = flat(dark, 1, 1);
    paint_button(one, flat(accent, 1, 1), state, 3);
    EXPECT_EQ(one.values.front() >> 24U, 255U);
    Pixels none;
    paint_button(none, {}, state, 1);
    EXPECT_TRUE(none.values.empty());
  }
}

} // namespace
} // namespace lumotune::test
