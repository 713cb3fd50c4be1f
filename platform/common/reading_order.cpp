// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/reading_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace lumotune::platform {
namespace {

using Indices = std::vector<std::size_t>;

struct Span {
  std::int64_t start = 0;
  std::int64_t end = 0;
};

// Shrunk by a tolerance: neighbours may overlap by some pixels.
Span inner(std::int64_t start, std::int64_t length) {
  constexpr std::int64_t most = 60; // twips
  const std::int64_t edge = std::min(length / 4, most);
  return {start + edge, start + length - edge};
}

Span span_of(const TwipsRect& place, bool rows) {
  return rows ? inner(place.top, place.height) : inner(place.left, place.width);
}

// The groups that straight gaps across the whole area separate, in order; one group where there is no gap.
std::vector<Indices> cut(const std::vector<TwipsRect>& places, Indices group, bool rows) {
  std::stable_sort(group.begin(), group.end(), [&](std::size_t a, std::size_t b) {
    return span_of(places[a], rows).start < span_of(places[b], rows).start;
  });
  std::vector<Indices> parts;
  std::int64_t end = 0;
  for (const std::size_t index : group) {
    const Span span = span_of(places[index], rows);
    if (parts.empty() || span.start > end)
      parts.emplace_back();
    end = parts.back().empty() ? span.end : std::max(end, span.end);
    parts.back().push_back(index);
  }
  return parts;
}

// Splits into rows, those into columns, and so on, until nothing can be split.
void put_in_order(const std::vector<TwipsRect>& places, const Indices& group, Indices& order) {
  for (const bool rows : {true, false}) {
    const auto parts = cut(places, group, rows);
    if (parts.size() < 2)
      continue;
    for (const Indices& part : parts)
      put_in_order(places, part, order);
    return;
  }
  Indices kept = group;
  std::sort(kept.begin(), kept.end());
  order.insert(order.end(), kept.begin(), kept.end());
}

} // namespace

std::vector<std::size_t> reading_order(const std::vector<TwipsRect>& places) {
  Indices all(places.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  Indices order;
  order.reserve(all.size());
  put_in_order(places, all, order);
  return order;
}

} // namespace lumotune::platform
