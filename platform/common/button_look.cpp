// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/button_look.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace lumotune::platform {
namespace {

using Value = std::uint32_t;

constexpr Value black = 0xff000000;
constexpr Value white = 0xffffffff;
constexpr Value closing = 0xffc42b1c;
constexpr double corner = 5;          // radius of a ground, in the artist's pixels
constexpr int most_outlined = 512;    // pixels of a side; a larger body gets a rectangular ring
constexpr int light = 128;            // of 255, where a colour counts as light
constexpr double nowhere = 1'000'000; // a distance beyond any ring

int part(Value pixel, unsigned shift) {
  return static_cast<int>(pixel >> shift & 0xffU);
}

int luminance(Value pixel) {
  return (part(pixel, 16) * 54 + part(pixel, 8) * 183 + part(pixel, 0) * 19) / 256;
}

// Both opaque; `much` 0..1 of `other`.
Value mixed(Value one, Value other, double much) {
  Value result = black;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const double value = part(one, shift) * (1 - much) + part(other, shift) * much;
    result |= static_cast<Value>(std::lround(std::clamp(value, 0.0, 255.0))) << shift;
  }
  return result;
}

// A premultiplied pixel over an opaque one.
Value over(Value above, Value below) {
  const int through = 255 - part(above, 24);
  Value result = black;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const int value = part(above, shift) + (part(below, shift) * through + 127) / 255;
    result |= static_cast<Value>(std::min(value, 255)) << shift;
  }
  return result;
}

// The opaque colour mixed into a premultiplied pixel, which keeps its opacity.
Value tinted(Value pixel, Value colour, double much) {
  const int opacity = part(pixel, 24);
  Value result = pixel & black;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const double value = part(pixel, shift) * (1 - much) + part(colour, shift) * opacity / 255.0 * much;
    result |= static_cast<Value>(std::clamp(std::lround(value), 0L, static_cast<long>(opacity))) << shift;
  }
  return result;
}

Value faded(Value pixel, double much) {
  Value result = 0;
  for (const unsigned shift : {0U, 8U, 16U, 24U})
    result |= static_cast<Value>(std::lround(part(pixel, shift) * much)) << shift;
  return result;
}

// Towards a grey of the same lightness; `much` 0..1.
Value greyed(Value pixel, double much) {
  const int grey = luminance(pixel);
  Value result = pixel & black;
  for (const unsigned shift : {0U, 8U, 16U})
    result |= static_cast<Value>(std::lround(part(pixel, shift) * (1 - much) + grey * much)) << shift;
  return result;
}

// How far the red channel exceeds the other two: 0 for hardly red, 1 for clearly red, linear in between.
double redness(Value pixel) {
  constexpr double none = 16;
  constexpr double all = 48;
  return std::clamp((part(pixel, 16) - std::max(part(pixel, 8), part(pixel, 0)) - none) / (all - none), 0.0, 1.0);
}

struct Box {
  int left = 0;
  int top = 0;
  int right = 0; // past the last column
  int bottom = 0;
};

// What the picture covers.
class Shape {
public:
  explicit Shape(const Pixels& picture) : picture_(picture), box_{picture.width, picture.height, 0, 0} {
    std::size_t covered = 0;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        if (!covers(x, y))
          continue;
        ++covered;
        lightness_ += luminance(picture.values[at(x, y)]);
        box_ = {std::min(box_.left, x), std::min(box_.top, y), std::max(box_.right, x + 1),
                std::max(box_.bottom, y + 1)};
      }
    }
    body_ = covered * 2 >= picture.values.size() && covered != 0;
    lightness_ /= std::max<std::int64_t>(static_cast<std::int64_t>(covered), 1);
  }
  [[nodiscard]] bool body() const { return body_; }
  [[nodiscard]] std::int64_t lightness() const { return lightness_; } // 0..255
  [[nodiscard]] bool covers(int x, int y) const {
    return x >= 0 && y >= 0 && x < picture_.width && y < picture_.height &&
           part(picture_.values[at(x, y)], 24) >= light;
  }
  // Pixels free on its narrowest side.
  [[nodiscard]] int margin() const {
    return std::min({box_.left, box_.top, picture_.width - box_.right, picture_.height - box_.bottom});
  }
  // From the middle of a pixel to the nearest one on the other side of the outline; `nowhere` past `reach`.
  [[nodiscard]] double to_outline(int x, int y, int reach) const {
    const bool here = covers(x, y);
    int nearest = -1;
    for (int dy = -reach; dy <= reach; ++dy) {
      for (int dx = -reach; dx <= reach; ++dx) {
        const int squared = dx * dx + dy * dy;
        if ((nearest < 0 || squared < nearest) && covers(x + dx, y + dy) != here)
          nearest = squared;
      }
    }
    return nearest < 0 ? nowhere : std::sqrt(nearest) - 0.5;
  }

private:
  [[nodiscard]] std::size_t at(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(picture_.width) + static_cast<std::size_t>(x);
  }
  const Pixels& picture_;
  Box box_;
  bool body_ = false;
  std::int64_t lightness_ = 0;
};

// How deep the middle of a pixel lies in a rounded rectangle of that size; below 0 outside.
double depth(int x, int y, int width, int height, double radius) {
  const double across = std::abs(x + 0.5 - width / 2.0) - (width / 2.0 - radius);
  const double down = std::abs(y + 0.5 - height / 2.0) - (height / 2.0 - radius);
  const double outside = std::hypot(std::max(across, 0.0), std::max(down, 0.0));
  return radius - outside - std::min(std::max(across, down), 0.0);
}

template <typename Change>
void for_each_pixel(Pixels& pixels, const Change& change) {
  std::size_t at = 0;
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x, ++at)
      change(x, y, pixels.values[at]);
  }
}

bool is_light(const Pixels& pixels) {
  std::int64_t sum = 0;
  for (const Value pixel : pixels.values)
    sum += luminance(pixel);
  return sum >= light * static_cast<std::int64_t>(pixels.values.size());
}

// Under the pointer a shade towards the other end of the scale, when pressed a darker one.
void paint_ground(Pixels& behind, const ButtonState& state, double radius) {
  const Value colour = state.closes ? closing : state.pressed || is_light(behind) ? black : white;
  const double strength = state.closes ? 1 : state.pressed ? 0.28 : 0.11;
  const Value pressed_in = state.closes && state.pressed ? mixed(colour, black, 0.2) : colour;
  const int width = behind.width;
  const int height = behind.height;
  for_each_pixel(behind, [&](int x, int y, Value& pixel) {
    const double inside = std::clamp(depth(x, y, width, height, radius) + 0.5, 0.0, 1.0);
    pixel = mixed(pixel, pressed_in, strength * inside);
  });
}

Value look_of(Value pixel, const ButtonState& state, const Shape& shape) {
  constexpr int very_light = 200;
  if (!state.enabled)
    return faded(greyed(pixel, 1), 0.38);
  if (state.neutral)
    pixel = greyed(pixel, redness(pixel));
  if (state.closes && state.hovered)
    return shape.body() ? tinted(pixel, closing, 0.6) : tinted(pixel, white, 1);
  if (state.pressed)
    return tinted(pixel, black, 0.22);
  if (state.hovered && shape.body())
    return tinted(pixel, shape.lightness() > very_light ? black : white, 0.16);
  return pixel;
}

// The pixels of a ring, one for each pixel: how much of it is ring, 0..1.
std::vector<double> ring_of(const Pixels& target, const Shape& shape, double scale, double radius) {
  const double line = 2 * std::max(1.0, std::round(scale));
  const bool outlined = shape.body() && std::max(target.width, target.height) <= most_outlined;
  const bool outside = outlined && shape.margin() >= line;
  const double gap = outside && shape.margin() >= 2 * line ? line / 2 : 0;
  const int reach = static_cast<int>(std::ceil(gap + line)) + 1;
  std::vector<double> ring;
  ring.reserve(target.values.size());
  for (int y = 0; y < target.height; ++y) {
    for (int x = 0; x < target.width; ++x) {
      double away = depth(x, y, target.width, target.height, outlined ? 0 : radius);
      if (outlined)
        away = shape.covers(x, y) == outside ? nowhere : shape.to_outline(x, y, reach);
      ring.push_back(std::clamp(away - gap + 0.5, 0.0, 1.0) * std::clamp(gap + line - away + 0.5, 0.0, 1.0));
    }
  }
  return ring;
}

// White or black, whichever stands out from what the ring lies on.
void paint_ring(Pixels& target, const std::vector<double>& ring) {
  double sum = 0;
  double weight = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    sum += ring[i] * luminance(target.values[i]);
    weight += ring[i];
  }
  const Value colour = weight > 0 && sum / weight >= light ? black : white;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    if (ring[i] > 0)
      target.values[i] = mixed(target.values[i], colour, ring[i]);
  }
}

} // namespace

void paint_button(Pixels& behind, const Pixels& picture, const ButtonState& state, double scale) {
  const Shape shape(picture);
  ButtonState shown = state;
  shown.hovered = state.enabled && (state.hovered || state.pressed);
  shown.pressed = state.enabled && state.pressed;
  const double radius = std::min({corner * scale, behind.width / 2.0, behind.height / 2.0});
  if (shown.hovered && !shape.body())
    paint_ground(behind, shown, radius);
  // A pressed picture lies lower; its first row fills what it leaves.
  const int lower = shown.pressed ? static_cast<int>(std::max(1.0, std::round(scale))) : 0;
  for_each_pixel(behind, [&](int x, int y, Value& pixel) {
    const auto from = static_cast<std::size_t>(std::max(y - lower, 0)) * static_cast<std::size_t>(picture.width);
    pixel = over(look_of(picture.values[from + static_cast<std::size_t>(x)], shown, shape), pixel);
  });
  if (state.focused && state.enabled)
    paint_ring(behind, ring_of(behind, shape, scale, radius));
}

} // namespace lumotune::platform
