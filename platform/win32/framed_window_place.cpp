// SPDX-License-Identifier: LGPL-2.1-or-later
// The framed window's place and size in each of its states, and how it stays in view.
#include "platform/win32/dpi.h"
#include "platform/win32/framed_window.h"
#include "platform/win32/monitors.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace lumotune::platform::win32 {
namespace {

constexpr UINT message_come_back = WM_APP + 101;

} // namespace

bool FramedWindow::handle_size_message(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
  case WM_GETMINMAXINFO: {
    auto& limits = *reinterpret_cast<MINMAXINFO*>(l);
    limits.ptMinTrackSize.x = std::max<LONG>(limits.ptMinTrackSize.x, pixels(least_width_, dpi_));
    limits.ptMinTrackSize.y = std::max<LONG>(limits.ptMinTrackSize.y, pixels(least_height_, dpi_));
    return true;
  }
  case WM_MOVE:
    note_move();
    return false;
  case WM_ENTERSIZEMOVE:
  case WM_EXITSIZEMOVE:
    user_moves_ = message == WM_ENTERSIZEMOVE;
    return false;
  case message_come_back:
    come_back();
    return true;
  case WM_DISPLAYCHANGE:
    view_.screen_changed();
    look_at_screen();
    return false;
  case WM_SIZE:
    note_state(w);
    if (w != SIZE_MINIMIZED)
      fire(on_resize);
    return true;
  case WM_DPICHANGED: {
    const RECT wished = *reinterpret_cast<const RECT*>(l);
    change_dpi(HIWORD(w));
    SetWindowPos(window_, nullptr, wished.left, wished.top, wished.right - wished.left, wished.bottom - wished.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    fire(on_resize); // also where the size in pixels happens to be the same
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return true;
  }
  default:
    return false;
  }
}

void FramedWindow::note_move() {
  if (in_normal_state())
    GetWindowRect(window_, &normal_);
  if (!user_moves_)
    recheck_.begin();
  look_at_screen();
}

// The system's normal positions are relative to the work area, whose origin differs from the desktop's where the task
// bar lies above or at the left. The offset is measured when the window leaves a known position.
void FramedWindow::note_state(WPARAM state) {
  if (state == SIZE_RESTORED) {
    GetWindowRect(window_, &normal_);
    if (!std::exchange(was_normal_, true))
      PostMessageW(window_, message_come_back, 0, 0);
  } else if (std::exchange(was_normal_, false)) {
    const RECT counted = placement().rcNormalPosition;
    count_from_ = {normal_.left - counted.left, normal_.top - counted.top};
  }
}

WINDOWPLACEMENT FramedWindow::placement() const {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window_, &placement);
  return placement;
}

RECT FramedWindow::normal_place() const {
  RECT place{};
  if (in_normal_state()) {
    GetWindowRect(window_, &place);
    return place;
  }
  place = placement().rcNormalPosition;
  OffsetRect(&place, count_from_.x, count_from_.y);
  return place;
}

void FramedWindow::set_normal_place(const RECT& place) {
  if (in_normal_state()) {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  WINDOWPLACEMENT changed = placement();
  changed.rcNormalPosition = place;
  OffsetRect(&changed.rcNormalPosition, -count_from_.x, -count_from_.y);
  if (!visible())
    changed.showCmd = SW_HIDE; // the show command that was read would show the window
  SetWindowPlacement(window_, &changed);
}

// A maximised or minimised window keeps its state; the size applies to the restored window.
void FramedWindow::resize(int width, int height) {
  check_thread();
  RECT place = normal_place();
  const RECT room = work_area(place);
  const POINT least = smallest_size();
  const LONG wide = std::clamp<LONG>(pixels(std::max(width, 0), dpi_), 0, room.right - room.left);
  const LONG high = std::clamp<LONG>(pixels(std::max(height, 0), dpi_), 0, room.bottom - room.top);
  place.right = place.left + std::max(wide, least.x);
  place.bottom = place.top + std::max(high, least.y);
  const POINT corner = place_in_view(place);
  OffsetRect(&place, corner.x - place.left, corner.y - place.top);
  owed_.reset();
  if (!in_normal_state())
    owed_ = SIZE{twips(place.right - place.left, dpi_), twips(place.bottom - place.top, dpi_)};
  set_normal_place(place);
}

void FramedWindow::move(int left, int top) {
  check_thread();
  RECT place = normal_place();
  OffsetRect(&place, pixels(left, system_dpi_) - place.left, pixels(top, system_dpi_) - place.top);
  set_normal_place(place);
}

// Posted, because a window manager may restore the old size first. Only the size is applied late. The restored position
// may lie on a monitor that is gone.
void FramedWindow::come_back() {
  if (!in_normal_state())
    return;
  if (owed_)
    resize(owed_->cx, owed_->cy);
  else if (visible())
    come_into_view();
}

// The system enforces a minimum size for windows with such a frame.
POINT FramedWindow::smallest_size() const {
  return {std::max<LONG>(GetSystemMetrics(SM_CXMINTRACK), pixels(least_width_, dpi_)),
          std::max<LONG>(GetSystemMetrics(SM_CYMINTRACK), pixels(least_height_, dpi_))};
}

// A move that comes neither from the user nor from another program is a window manager's.
void FramedWindow::look_at_screen() {
  if (!visible() || !in_normal_state())
    return;
  const std::vector<Monitor> now = monitors();
  view_.look_at(now);
  const bool unasked = !user_moves_ && InSendMessageEx(nullptr) == ISMEX_NOSEND;
  if (unasked && view_.undoes(screen_rect(normal_place()), now, GetTickCount()))
    view_.screen_changed();
  if (view_.has_changed())
    come_into_view();
}

void FramedWindow::come_into_view() {
  constexpr int piece_to_hold = 480; // twips
  if (!in_normal_state())
    return;
  RECT place = normal_place();
  const auto wanted = view_.correction(screen_rect(place), monitors(), pixels(piece_to_hold, dpi_), GetTickCount());
  if (!wanted)
    return;
  const POINT corner = pixel_point(*wanted);
  OffsetRect(&place, corner.x - place.left, corner.y - place.top);
  set_normal_place(place);
}

TwipsRect FramedWindow::rect() const {
  const RECT place = normal_place();
  return {twips(place.left, system_dpi_), twips(place.top, system_dpi_), twips(place.right - place.left, dpi_),
          twips(place.bottom - place.top, dpi_)};
}

void FramedWindow::set_minimum(int width, int height) {
  check_thread();
  least_width_ = std::max(width, 0);
  least_height_ = std::max(height, 0);
}

int FramedWindow::client_width() const {
  RECT area{};
  GetClientRect(window_, &area);
  return twips(area.right, dpi_);
}

int FramedWindow::client_height() const {
  RECT area{};
  GetClientRect(window_, &area);
  return twips(area.bottom, dpi_);
}

int FramedWindow::frame_height() const {
  RECT around{};
  AdjustWindowRectExForDpi(&around, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)), dpi_);
  return twips(around.bottom - around.top, dpi_);
}

} // namespace lumotune::platform::win32
