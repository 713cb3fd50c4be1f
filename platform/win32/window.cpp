// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/window.h"

#include "platform/win32/dpi.h"
#include "platform/win32/system_look.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr const wchar_t* class_name = L"LumotuneWindow";
// The first drop comes later than that; the start need not wait for OLE.
constexpr std::uint32_t drops_start_ms = 200;

} // namespace

// A tool window has no task-bar button: the program lives in the notification area.
Window::Window(EventLoop& loop, const std::wstring& name, int icon)
    : ControlHost(loop, name, FontSize::fixed),
      recheck_(loop, [this] { look_at_screen(); }),
      drops_start_(loop.make_timer(drops_start_ms, [this] { take_drops(); })),
      drop_waker_(loop.make_waker([this] { hand_over_drop(); })) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  icon_ = LoadIconW(program, MAKEINTRESOURCEW(icon));
  if (icon_ == nullptr)
    icon_ = LoadIconW(nullptr, IDI_APPLICATION);
  taskbar_created_ = RegisterWindowMessageW(L"TaskbarCreated");
  WNDCLASSEXW made{};
  made.cbSize = sizeof made;
  made.style = CS_DROPSHADOW;
  made.lpfnWndProc = procedure;
  made.hInstance = program;
  made.hIcon = icon_;
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.lpszClassName = class_name;
  RegisterClassExW(&made); // a second registration fails, and the first one serves
  window_ =
      CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT, class_name, L"", WS_POPUP | WS_CLIPCHILDREN, place_.x,
                      place_.y, pixels(width_, dpi_), pixels(height_, dpi_), nullptr, nullptr, program, this);
  dpi_ = GetDpiForWindow(window_) != 0 ? GetDpiForWindow(window_) : system_dpi_;
  SetPropW(window_, (name + L".Form").c_str(), reinterpret_cast<HANDLE>(1));
}

Window::~Window() {
  drops_.reset();
  destroy_controls();
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

platform::PictureBox& Window::make_picture(const std::wstring& designer_name, PictureKind kind) {
  return make_picture_control(designer_name, kind);
}

platform::Label& Window::make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) {
  return make_control<Label>(designer_name, kind, font);
}

platform::Button& Window::make_button(const std::wstring& designer_name) {
  return make_control<Button>(designer_name, TabStop::no);
}

platform::ListBox& Window::make_list(const std::wstring& designer_name) {
  return make_control<ListBox>(designer_name);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(l);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    static_cast<Window*>(creation->lpCreateParams)->window_ = window;
  }
  auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr)
    return DefWindowProcW(window, message, w, l);
  LRESULT result = 0;
  self->caught().guard([&] { result = self->handle_message(message, w, l); });
  return result;
}

LRESULT Window::handle_message(UINT message, WPARAM w, LPARAM l) {
  LRESULT result = 0;
  if (handle_child_message(message, w, l, result) || handle_system_message(message, w, l, result))
    return result;
  if (handle_focus_message(message, w))
    return 0;
  switch (message) {
  case WM_ERASEBKGND:
    return 1;
  case WM_PAINT: {
    PAINTSTRUCT painting{};
    const HDC dc = BeginPaint(window_, &painting);
    paint(dc, painting.rcPaint);
    EndPaint(window_, &painting);
    return 0;
  }
  case WM_MOUSEMOVE: {
    const auto button = (w & MK_LBUTTON) != 0   ? MouseButton::left
                        : (w & MK_RBUTTON) != 0 ? MouseButton::right
                                                : MouseButton::none;
    if (const auto copy = on_mouse_move)
      copy(MouseEvent{button, twips(GET_X_LPARAM(l), dpi_), twips(GET_Y_LPARAM(l), dpi_)});
    return 0;
  }
  case WM_CONTEXTMENU: { // a place of -1, -1 tells the keyboard from the mouse
    const ChildWindow* child = child_of(reinterpret_cast<HWND>(w));
    if (l == -1 || child == nullptr || !child->pressable())
      fire(on_menu);
    return 0;
  }
  case WM_WINDOWPOSCHANGED:
    note_place();
    look_at_screen();
    return DefWindowProcW(window_, message, w, l);
  default:
    return DefWindowProcW(window_, message, w, l);
  }
}

bool Window::handle_system_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == taskbar_created_ && taskbar_created_ != 0) {
    fire(on_shell_restart);
    return true;
  }
  switch (message) {
  case WM_CLOSE:
    fire(on_close);
    return true;
  case WM_QUERYENDSESSION:
    result = TRUE;
    return true;
  case WM_ENDSESSION:
    if (w != 0)
      fire(on_session_end);
    return true;
  case WM_POWERBROADCAST:
    if (w == PBT_APMSUSPEND)
      fire(on_suspend);
    else if (w == PBT_APMRESUMEAUTOMATIC) // sent on every resume, PBT_APMRESUMESUSPEND only when a user is present
      fire(on_resume);
    result = TRUE;
    return true;
  case WM_DISPLAYCHANGE:
    view_.screen_changed();
    look_at_screen();
    return false;
  case WM_DPICHANGED: {
    const auto& wished = *reinterpret_cast<const RECT*>(l);
    change_dpi(HIWORD(w));
    apply_size();
    SetWindowPos(window_, nullptr, wished.left, wished.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
  }
  default:
    return false;
  }
}

void Window::set_caption(const std::wstring& caption) {
  check_thread();
  caption_ = caption;
  SetWindowTextW(window_, caption.c_str());
}

// SW_RESTORE alone brings a minimised window back in place; after SW_SHOW a window manager would place it anew.
void Window::set_visible(bool visible) {
  check_thread();
  if (!visible) {
    hidden_state_ = state();
    ShowWindow(window_, SW_HIDE);
    return;
  }
  settling_since_ = GetTickCount();
  come_into_view();
  if (drops_ == nullptr)
    drops_start_->start();
  place_first();
  if (IsIconic(window_) != 0) {
    const POINT place = place_;
    ShowWindow(window_, SW_RESTORE);
    SetWindowPos(window_, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  } else {
    ShowWindow(window_, SW_SHOW);
  }
  if (!std::exchange(rounded_, true)) // not before it is seen: the library behind it need not hold up the start
    round_corners(window_);
  // Not every window manager keeps the layer of a hidden window.
  if (topmost_)
    SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

bool Window::visible() const {
  return IsWindowVisible(window_) != 0;
}

// A hidden window stays hidden; showing it restores it in any case.
void Window::set_state(WindowState state) {
  check_thread();
  if (!visible()) {
    hidden_state_ = state;
    return;
  }
  const bool minimized = IsIconic(window_) != 0;
  if (state == WindowState::minimized && !minimized)
    ShowWindow(window_, SW_MINIMIZE);
  else if (state == WindowState::normal && minimized)
    set_visible(true);
}

WindowState Window::state() const {
  if (!visible())
    return hidden_state_;
  return IsIconic(window_) != 0 ? WindowState::minimized : WindowState::normal;
}

std::int64_t Window::picture_pixels(const std::wstring& path) const {
  return win32::picture_pixels(path);
}

std::int64_t Window::shown_pixels(std::string_view bytes) const {
  const auto size = win32::picture_size(bytes);
  return size ? std::int64_t{size->width} * size->height : 0;
}

bool Window::load_background(const std::wstring& path) {
  if (!background_.load(path))
    return false;
  background_path_ = path;
  redraw();
  return true;
}

void Window::clear_background() {
  background_ = {};
  background_path_.clear();
  redraw();
}

bool Window::set_topmost(bool on) {
  const UINT quiet = visible() ? 0U : SWP_NOACTIVATE; // hidden, it must not take the focus
  const bool is_on = (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  if (!placed_ && is_on == on) {
    topmost_ = on;
    return true;
  }
  if (SetWindowPos(window_, on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | quiet) == 0)
    return false;
  topmost_ = on;
  return true;
}

bool Window::topmost() const {
  return topmost_;
}

void Window::activate() {
  check_thread();
  BringWindowToTop(window_);
  SetForegroundWindow(window_);
  if (IsWindowVisible(window_) != 0 && GetFocus() == nullptr)
    SetFocus(window_);
}

void Window::redraw() {
  check_thread();
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// The system's modal loop moves the window until the button is released; mouse moves inside it must not restart it.
void Window::drag_by_caption() {
  check_thread();
  if (dragging_)
    return;
  dragging_ = true;
  ReleaseCapture();
  SendMessageW(window_, WM_NCLBUTTONDOWN, HTCAPTION, 0);
  dragging_ = false;
}

} // namespace lumotune::platform::win32
