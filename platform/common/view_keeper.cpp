// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/view_keeper.h"

#include <algorithm>
#include <utility>

namespace lumotune::platform {
namespace {

std::int64_t width(const ScreenRect& rect) {
  return rect.right - rect.left;
}

std::int64_t height(const ScreenRect& rect) {
  return rect.bottom - rect.top;
}

// A width or height below 0 is the distance between the two.
ScreenRect intersection(const ScreenRect& a, const ScreenRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

std::int64_t shown_area(const ScreenRect& window, const Monitor& monitor) {
  const ScreenRect shown = intersection(window, monitor.whole);
  return std::max<std::int64_t>(0, width(shown)) * std::max<std::int64_t>(0, height(shown));
}

std::int64_t distance(const ScreenRect& window, const Monitor& monitor) {
  const ScreenRect between = intersection(window, monitor.whole);
  return std::max<std::int64_t>(0, -width(between)) + std::max<std::int64_t>(0, -height(between));
}

std::int64_t moved_within(std::int64_t start, std::int64_t length, std::int64_t low, std::int64_t high) {
  return std::max(low, std::min(start, high - length));
}

} // namespace

bool can_be_held(const ScreenRect& window, const std::vector<Monitor>& monitors, std::int64_t piece) {
  return std::any_of(monitors.begin(), monitors.end(), [&](const Monitor& monitor) {
    const ScreenRect shown = intersection(window, monitor.whole);
    return width(shown) >= piece && height(shown) >= piece;
  });
}

bool mostly_in_view(const ScreenRect& window, const std::vector<Monitor>& monitors) {
  std::int64_t shown = 0;
  for (const Monitor& monitor : monitors)
    shown += shown_area(window, monitor);
  return shown * 2 >= width(window) * height(window);
}

const Monitor& monitor_of(const ScreenRect& window, const std::vector<Monitor>& monitors) {
  return *std::max_element(monitors.begin(), monitors.end(), [&](const Monitor& a, const Monitor& b) {
    return std::pair(shown_area(window, a), -distance(window, a)) <
           std::pair(shown_area(window, b), -distance(window, b));
  });
}

ScreenPoint place_within(const ScreenRect& area, const ScreenRect& window) {
  return {moved_within(window.left, width(window), area.left, area.right),
          moved_within(window.top, height(window), area.top, area.bottom)};
}

void ViewKeeper::look_at(const std::vector<Monitor>& monitors) {
  std::vector<ScreenRect> now;
  for (const Monitor& monitor : monitors)
    now.push_back(monitor.whole);
  const auto before = std::exchange(seen_, std::move(now));
  if (!before.empty() && before != seen_)
    changed_ = true;
}

std::optional<ScreenPoint> ViewKeeper::correction(const ScreenRect& window, const std::vector<Monitor>& monitors,
                                                  std::int64_t piece, std::uint32_t tick_count_ms) {
  look_at(monitors);
  if (monitors.empty())
    return std::nullopt;
  const bool chosen = !std::exchange(changed_, false);
  if (can_be_held(window, monitors, piece) && (chosen || mostly_in_view(window, monitors)))
    return std::nullopt;
  corrected_at_ = tick_count_ms;
  return place_within(monitor_of(window, monitors).work_area, window);
}

bool ViewKeeper::undoes(const ScreenRect& window, const std::vector<Monitor>& monitors,
                        std::uint32_t tick_count_ms) const {
  constexpr std::uint32_t settling_ms = 10000;
  return corrected_at_ && tick_count_ms - *corrected_at_ < settling_ms && !mostly_in_view(window, monitors);
}

} // namespace lumotune::platform
