// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/monitors.h"

#include <cstddef>

namespace lumotune::platform::win32 {
namespace {

// Must not throw through the system's code, so it never exceeds the reserved capacity.
BOOL CALLBACK add_monitor(HMONITOR monitor, HDC /*dc*/, RECT* /*place*/, LPARAM into) {
  auto& found = *reinterpret_cast<std::vector<Monitor>*>(into);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (found.size() == found.capacity())
    return FALSE;
  if (GetMonitorInfoW(monitor, &info) != 0)
    found.push_back({screen_rect(info.rcMonitor), screen_rect(info.rcWork)});
  return TRUE;
}

} // namespace

std::vector<Monitor> monitors() {
  constexpr std::size_t most = 64;
  std::vector<Monitor> found;
  found.reserve(most);
  EnumDisplayMonitors(nullptr, nullptr, add_monitor, reinterpret_cast<LPARAM>(&found));
  return found;
}

ScreenRect screen_rect(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

POINT pixel_point(const ScreenPoint& point) {
  return {static_cast<LONG>(point.x), static_cast<LONG>(point.y)};
}

RECT work_area(const RECT& window) {
  const std::vector<Monitor> all = monitors();
  if (all.empty())
    return window;
  const ScreenRect& area = monitor_of(screen_rect(window), all).work_area;
  return {static_cast<LONG>(area.left), static_cast<LONG>(area.top), static_cast<LONG>(area.right),
          static_cast<LONG>(area.bottom)};
}

POINT place_in_view(const RECT& window) {
  return pixel_point(place_within(screen_rect(work_area(window)), screen_rect(window)));
}

} // namespace lumotune::platform::win32
