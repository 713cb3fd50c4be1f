// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/scale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace lumotune::platform {
namespace {

using Channels = std::array<float, 4>; // blue, green, red, opacity

// Catmull-Rom kernel: sharper than linear interpolation, and exact where the sizes agree.
double cubic(double distance) {
  const double x = std::abs(distance);
  if (x < 1)
    return (1.5 * x - 2.5) * x * x + 1;
  return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

// The weighted source pixels of one pixel of the result.
struct Mix {
  struct Part {
    std::size_t from = 0;
    float weight = 0;
  };
  std::vector<Part> parts;
};

// When scaling down the kernel is widened so that no source pixel is skipped.
std::vector<Mix> mixes(int from, int to) {
  const double ratio = static_cast<double>(from) / to;
  const double stretch = std::max(ratio, 1.0);
  std::vector<Mix> all(static_cast<std::size_t>(to));
  for (int i = 0; i < to; ++i) {
    const double centre = (i + 0.5) * ratio - 0.5;
    Mix& mix = all[static_cast<std::size_t>(i)];
    double sum = 0;
    for (int at = static_cast<int>(std::ceil(centre - 2 * stretch)); at <= centre + 2 * stretch; ++at) {
      const double weight = cubic((at - centre) / stretch);
      const int inside = std::clamp(at, 0, from - 1);
      mix.parts.push_back({static_cast<std::size_t>(inside), static_cast<float>(weight)});
      sum += weight;
    }
    for (Mix::Part& part : mix.parts)
      part.weight /= static_cast<float>(sum);
  }
  return all;
}

void add(Channels& sum, const Channels& value, float weight) {
  for (std::size_t i = 0; i < sum.size(); ++i)
    sum[i] += value[i] * weight;
}

Channels spread(std::uint32_t pixel) {
  const auto part = [pixel](unsigned shift) { return static_cast<float>(pixel >> shift & 0xffU); };
  return {part(0), part(8), part(16), part(24)};
}

// The kernel overshoots: a premultiplied colour must not exceed its opacity.
std::uint32_t joined(const Channels& value) {
  const float opacity = std::clamp(value[3], 0.0F, 255.0F);
  const auto part = [&](std::size_t i) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(value[i], 0.0F, opacity)));
  };
  return part(3) << 24U | part(2) << 16U | part(1) << 8U | part(0);
}

} // namespace

Pixels scaled(const Pixels& picture, int width, int height) {
  if (width == picture.width && height == picture.height)
    return picture;
  const std::vector<Mix> across = mixes(picture.width, width);
  const std::vector<Mix> down = mixes(picture.height, height);
  const auto rows = static_cast<std::size_t>(picture.height);
  const auto columns = across.size();
  std::vector<Channels> narrow(rows * columns);
  std::vector<Channels> line(static_cast<std::size_t>(picture.width));
  for (std::size_t y = 0; y < rows; ++y) {
    for (std::size_t x = 0; x < line.size(); ++x)
      line[x] = spread(picture.values[y * line.size() + x]);
    for (std::size_t x = 0; x < columns; ++x) {
      for (const Mix::Part& part : across[x].parts)
        add(narrow[y * columns + x], line[part.from], part.weight);
    }
  }
  Pixels result{width, height, {}};
  result.values.reserve(columns * down.size());
  for (const Mix& mix : down) {
    for (std::size_t x = 0; x < columns; ++x) {
      Channels sum{};
      for (const Mix::Part& part : mix.parts)
        add(sum, narrow[part.from * columns + x], part.weight);
      result.values.push_back(joined(sum));
    }
  }
  return result;
}

} // namespace lumotune::platform
