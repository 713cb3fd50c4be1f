// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/monitors.h"

#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

LONGLONG area_of(const RECT& rect) {
  return static_cast<LONGLONG>(rect.right - rect.left) * (rect.bottom - rect.top);
}

struct Seen {
  RECT window{};
  LONGLONG area = 0;
};

BOOL CALLBACK add_seen(HMONITOR /*monitor*/, HDC /*dc*/, RECT* place, LPARAM l) {
  auto& seen = *reinterpret_cast<Seen*>(l);
  RECT both{};
  if (IntersectRect(&both, &seen.window, place) != 0)
    seen.area += area_of(both);
  return TRUE;
}

} // namespace

LONG moved_within(LONG start, LONG length, LONG low, LONG high) {
  return std::max(low, std::min(start, high - length));
}

RECT work_area(const RECT& window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromRect(&window, MONITOR_DEFAULTTONEAREST), &info);
  return info.rcWork;
}

bool in_view(const RECT& window, int piece) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  RECT seen{};
  const HMONITOR monitor = MonitorFromRect(&window, MONITOR_DEFAULTTONULL);
  return monitor != nullptr && GetMonitorInfoW(monitor, &info) != 0 &&
         IntersectRect(&seen, &window, &info.rcMonitor) != 0 && seen.right - seen.left >= piece &&
         seen.bottom - seen.top >= piece;
}

bool mostly_in_view(const RECT& window) {
  Seen seen{window};
  EnumDisplayMonitors(nullptr, nullptr, add_seen, reinterpret_cast<LPARAM>(&seen));
  return seen.area * 2 >= area_of(window);
}

POINT place_in_view(const RECT& window) {
  const RECT room = work_area(window);
  return {moved_within(window.left, window.right - window.left, room.left, room.right),
          moved_within(window.top, window.bottom - window.top, room.top, room.bottom)};
}

} // namespace lumotune::platform::win32
