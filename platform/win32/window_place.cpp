// SPDX-License-Identifier: LGPL-2.1-or-later
// The main window's place and size, and how it stays in view.
#include "platform/win32/dpi.h"
#include "platform/win32/monitors.h"
#include "platform/win32/window.h"

#include <algorithm>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr int piece_to_hold = 480; // twips
constexpr UINT move_only = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;

} // namespace

// Undoes moves that a window manager makes on its own just after the window was shown or brought back into view. All
// other moves are kept: the user's, and those of tools, which arrive as messages sent by other programs.
void Window::note_place() {
  RECT place{};
  constexpr LONG far_off = -30000; // where a minimised window is kept
  constexpr DWORD settling_ms = 400;
  if (!placed_ || IsIconic(window_) != 0 || GetWindowRect(window_, &place) == 0 || place.left <= far_off ||
      place.top <= far_off)
    return;
  const bool unasked = visible() && !dragging_ && InSendMessageEx(nullptr) == ISMEX_NOSEND;
  const DWORD now = GetTickCount();
  if (unasked && (place.left != place_.x || place.top != place_.y))
    recheck_.begin();
  const bool settling = now - settling_since_ < settling_ms ||
                        view_.undoes(screen_rect(area_at({place.left, place.top})), monitors(), now);
  if (!unasked || !settling)
    place_ = {place.left, place.top};
  else if (place.left != place_.x || place.top != place_.y)
    SetWindowPos(window_, nullptr, place_.x, place_.y, 0, 0, move_only);
}

void Window::move(int left, int top) {
  check_thread();
  place_ = {pixels(left, system_dpi_), pixels(top, system_dpi_)};
  if (!placed_)
    return;
  SetWindowPos(window_, nullptr, place_.x, place_.y, 0, 0, move_only);
}

void Window::resize(int width, int height) {
  check_thread();
  width_ = std::max(width, 0);
  height_ = std::max(height, 0);
  apply_size();
}

// Place and size are only stored until the window is first shown, and then applied in one call.
void Window::place_first() {
  if (!std::exchange(placed_, true))
    SetWindowPos(window_, nullptr, place_.x, place_.y, pixels(width_, dpi_), pixels(height_, dpi_),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::apply_size() {
  if (!placed_)
    return;
  SetWindowPos(window_, nullptr, 0, 0, pixels(width_, dpi_), pixels(height_, dpi_),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  redraw();
}

TwipsRect Window::rect() const {
  return {twips(place_.x, system_dpi_), twips(place_.y, system_dpi_), width_, height_};
}

RECT Window::area_at(POINT place) const {
  return {place.x, place.y, place.x + pixels(width_, dpi_), place.y + pixels(height_, dpi_)};
}

bool Window::on_some_monitor(int left, int top) const {
  const RECT area = area_at({pixels(left, system_dpi_), pixels(top, system_dpi_)});
  return can_be_held(screen_rect(area), monitors(), pixels(piece_to_hold, dpi_));
}

// A hidden window waits: its monitor may be back by the time it is shown.
void Window::look_at_screen() {
  view_.look_at(monitors());
  if (view_.has_changed() && visible() && IsIconic(window_) == 0)
    come_into_view();
}

void Window::come_into_view() {
  const DWORD now = GetTickCount();
  const auto wanted = view_.correction(screen_rect(area_at(place_)), monitors(), pixels(piece_to_hold, dpi_), now);
  if (!wanted)
    return;
  place_ = pixel_point(*wanted);
  settling_since_ = now;
  if (placed_ && IsIconic(window_) == 0)
    SetWindowPos(window_, nullptr, place_.x, place_.y, 0, 0, move_only);
}

TwipsRect Window::work_area() const {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &info) == 0)
    return {};
  const RECT& work = info.rcWork;
  return {twips(work.left, dpi_), twips(work.top, dpi_), twips(work.right - work.left, dpi_),
          twips(work.bottom - work.top, dpi_)};
}

} // namespace lumotune::platform::win32
