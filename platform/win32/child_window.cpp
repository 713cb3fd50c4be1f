// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/child_window.h"

#include "platform/win32/dpi.h"
#include "platform/win32/picture.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace lumotune::platform::win32 {

ChildWindow::ChildWindow(Surface& surface, const std::wstring& designer_name, const wchar_t* system_class, DWORD style,
                         DWORD extended_style, bool has_text)
    : surface_(surface),
      property_(surface.window_name() + L"." + designer_name),
      has_text_(has_text),
      settled_(in_sight()) {
  const DWORD whole_style = style | WS_CHILD | WS_CLIPSIBLINGS | (settled_ ? static_cast<DWORD>(WS_VISIBLE) : 0U);
  window_ = CreateWindowExW(extended_style | WS_EX_NOPARENTNOTIFY, system_class, L"", whole_style, 0, 0, 0, 0,
                            surface.handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
  // Screen readers and tests find the control by this property, whatever it shows.
  SetPropW(window_, property_.c_str(), reinterpret_cast<HANDLE>(1));
  set_font();
}

ChildWindow::~ChildWindow() {
  RemoveWindowSubclass(window_, procedure, 1);
  if (IsWindow(window_) == 0)
    return;
  RemovePropW(window_, property_.c_str());
  DestroyWindow(window_);
}

LRESULT CALLBACK ChildWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR /*id*/,
                                        DWORD_PTR self) {
  auto* child = reinterpret_cast<ChildWindow*>(self);
  LRESULT result = 0;
  bool done = false;
  child->surface_.caught().guard([&] {
    if (message == WM_SETFOCUS)
      child->surface_.keyboard_came(window);
    done = child->handle_message(message, w, l, result);
  });
  return done ? result : DefSubclassProc(window, message, w, l);
}

bool ChildWindow::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  switch (message) {
  case message_settle:
    settle();
    return true;
  case WM_ERASEBKGND: // everything is drawn at once, over what lies behind
    result = 1;
    return drawn_at_once();
  case WM_MOUSEMOVE:
    mouse_moved(mouse_event(w, l, MouseButton::none));
    return false;
  case WM_LBUTTONDOWN:
    mouse_pressed(mouse_event(w, l, MouseButton::left));
    return false;
  case WM_RBUTTONDOWN:
    mouse_pressed(mouse_event(w, l, MouseButton::right));
    return false;
  case WM_CONTEXTMENU: // a place of -1, -1 tells the keyboard from the mouse
    return l == -1 && menu_key_pressed();
  case WM_SETFOCUS:
  case WM_KILLFOCUS:
    InvalidateRect(window_, nullptr, FALSE);
    return false;
  case WM_SETCURSOR:
    if (!has_hand() || LOWORD(l) != HTCLIENT)
      return false;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    result = TRUE;
    return true;
  default:
    return false;
  }
}

MouseEvent ChildWindow::mouse_event(WPARAM keys, LPARAM point, MouseButton pressed) const {
  MouseEvent event;
  event.button = pressed;
  if (pressed == MouseButton::none && (keys & MK_LBUTTON) != 0)
    event.button = MouseButton::left;
  else if (pressed == MouseButton::none && (keys & MK_RBUTTON) != 0)
    event.button = MouseButton::right;
  event.x = twips(GET_X_LPARAM(point), surface_.dpi());
  event.y = twips(GET_Y_LPARAM(point), surface_.dpi());
  return event;
}

void ChildWindow::show(bool visible) {
  surface_.check_thread();
  if (shown_ == visible)
    return;
  shown_ = visible;
  if (!settled_) {
    if (in_sight())
      settle();
    return;
  }
  if (!visible && GetFocus() == window_)
    surface_.keyboard_leaves(window_);
  ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
  redraw();
  if (visible)
    surface_.keyboard_may_return(window_);
}

void ChildWindow::reach_changed(bool within) {
  if (within)
    surface_.keyboard_may_return(window_);
  else if (GetFocus() == window_)
    surface_.keyboard_leaves(window_);
}

void ChildWindow::enable(bool enabled) {
  surface_.check_thread();
  const bool leaves = !enabled && GetFocus() == window_;
  EnableWindow(window_, enabled ? TRUE : FALSE);
  redraw();
  if (leaves)
    surface_.keyboard_leaves(window_);
  else if (enabled)
    surface_.keyboard_may_return(window_);
}

// The active window of the thread alone: the focus of another program is not taken.
void ChildWindow::take_focus() {
  surface_.check_thread();
  if (shown_ && sized_ && IsWindowVisible(window_) != 0 && IsWindowEnabled(window_) != 0 &&
      GetActiveWindow() == surface_.handle())
    SetFocus(window_);
}

// Hidden controls are placed when first shown.
void ChildWindow::settle() {
  if (!shown_ || std::exchange(settled_, true))
    return;
  set_place(SWP_SHOWWINDOW);
  redraw();
}

void ChildWindow::apply_place() {
  if (!settled_)
    return;
  set_place(0);
  redraw();
}

void ChildWindow::set_place(UINT how) {
  // Far edges are converted, not lengths, so that adjacent controls stay adjacent at every scale. Numbers from a
  // server may be of any size; the system's limit is 32767 pixels.
  const auto edge = [this](int start, int length) {
    constexpr std::int64_t most = 240000;
    return pixels(static_cast<int>(std::clamp(std::int64_t{start} + length, -most, most)), surface_.dpi());
  };
  const int left = edge(place_.left, 0);
  const int top = edge(place_.top, 0);
  const int right = edge(place_.left, place_.width);
  const int bottom = edge(place_.top, place_.height);
  SetWindowPos(window_, nullptr, left, top, right - left, bottom - top, SWP_NOZORDER | SWP_NOACTIVATE | how);
}

void ChildWindow::redraw() {
  if (!in_sight())
    return; // everything is drawn when the window is shown
  RECT area{};
  GetWindowRect(window_, &area);
  MapWindowPoints(nullptr, surface_.handle(), reinterpret_cast<POINT*>(&area), 2);
  RedrawWindow(surface_.handle(), &area, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void ChildWindow::dpi_changed() {
  set_font();
  apply_place();
}

// The button class draws a new text at once, even while hidden; a picture's text is for screen readers only.
void ChildWindow::write_text(const std::wstring& text) {
  if (settled_ || has_text_)
    SetWindowTextW(window_, text.c_str());
  else
    DefWindowProcW(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ChildWindow::set_font() {
  if (has_text_)
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(surface_.font(LabelFont::normal, false)), FALSE);
}

void ChildWindow::paint_item(const DRAWITEMSTRUCT& item) {
  draw_buffered(item.hDC, item.rcItem);
}

void ChildWindow::draw_buffered(HDC target, const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0)
    return;
  const MemoryDc buffer(CreateCompatibleDC(target));
  const GdiObject bitmap(CreateCompatibleBitmap(target, width, height));
  const auto dc = static_cast<HDC>(buffer.get());
  const HGDIOBJ before = SelectObject(dc, bitmap.get());
  const RECT inside{0, 0, width, height};
  surface_.draw_behind(dc, window_);
  draw(dc, inside);
  BitBlt(target, area.left, area.top, width, height, dc, 0, 0, SRCCOPY);
  SelectObject(dc, before);
}

// Two frames, light and dark: one of them contrasts with any picture.
void ChildWindow::draw_focus(HDC target, const RECT& area) const {
  if (GetFocus() != window_ || !surface_.keyboard_used())
    return;
  RECT frame = area;
  const GdiObject dark(CreateSolidBrush(RGB(0, 0, 0)));
  const GdiObject light(CreateSolidBrush(RGB(255, 255, 255)));
  const int thickness = static_cast<int>(surface_.dpi() / picture_dpi);
  for (int i = 0; i < 2 * thickness; ++i) {
    FrameRect(target, &frame, static_cast<HBRUSH>(i < thickness ? light.get() : dark.get()));
    InflateRect(&frame, -1, -1);
  }
}

} // namespace lumotune::platform::win32
