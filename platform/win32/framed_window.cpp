// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/framed_window.h"

#include "platform/win32/browser.h"
#include "platform/win32/dpi.h"
#include "platform/win32/frame.h"
#include "platform/win32/list_view.h"
#include "platform/win32/monitors.h"
#include "platform/win32/text_box.h"
#include "platform/win32/tree_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr const wchar_t* class_name = L"LumotuneFramedWindow";
constexpr UINT message_come_back = WM_APP + 101;
constexpr int first_width = 9000; // twips
constexpr int first_height = 6000;

// As people see it: 1 for the same lightness, 21 for black on white.
double contrast(COLORREF one, COLORREF other) {
  const auto light = [](COLORREF colour) {
    const auto part = [](unsigned value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * part(GetRValue(colour)) + 0.7152 * part(GetGValue(colour)) + 0.0722 * part(GetBValue(colour));
  };
  const double first = light(one) + 0.05;
  const double second = light(other) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

// The system's own where it can be read on the ground: not every set of colours takes care of that.
COLORREF link_colour() {
  constexpr double readable = 4.5;
  for (const COLORREF wished : {GetSysColor(COLOR_HOTLIGHT), RGB(0, 102, 204), RGB(120, 180, 255)}) {
    if (contrast(wished, GetSysColor(COLOR_3DFACE)) >= readable)
      return wished;
  }
  return GetSysColor(COLOR_BTNTEXT);
}

} // namespace

Win32FramedWindow::Win32FramedWindow(Win32EventLoop& loop, const std::wstring& name, int icon)
    : ControlHost(loop, name, FontSize::chosen) {
  use_common_controls();
  const HINSTANCE program = GetModuleHandleW(nullptr);
  const auto load_icon = [&](int width, int height) {
    return static_cast<HICON>(
        LoadImageW(program, MAKEINTRESOURCEW(icon), IMAGE_ICON, width, height, LR_SHARED | LR_DEFAULTCOLOR));
  };
  WNDCLASSEXW made{};
  made.cbSize = sizeof made;
  made.lpfnWndProc = procedure;
  made.hInstance = program;
  made.hIcon = load_icon(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
  made.hIconSm = load_icon(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
  if (made.hIcon == nullptr)
    made.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.lpszClassName = class_name;
  RegisterClassExW(&made); // a second registration fails, and the first one serves
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT | WS_EX_APPWINDOW, class_name, L"",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                            pixels(first_width, dpi_), pixels(first_height, dpi_), nullptr, nullptr, program, this);
  if (GetDpiForWindow(window_) != 0)
    dpi_ = GetDpiForWindow(window_);
  SetPropW(window_, (name + L".Form").c_str(), reinterpret_cast<HANDLE>(1));
}

Win32FramedWindow::~Win32FramedWindow() {
  destroy_controls();
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  RemovePropW(window_, (window_name() + L".Form").c_str());
  DestroyWindow(window_);
}

TreeView& Win32FramedWindow::make_tree(const std::wstring& designer_name) {
  return make_control<Win32TreeView>(designer_name);
}

ListView& Win32FramedWindow::make_list_view(const std::wstring& designer_name) {
  return make_control<Win32ListView>(designer_name);
}

Label& Win32FramedWindow::make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) {
  return make_control<Win32Label>(designer_name, kind, font);
}

Button& Win32FramedWindow::make_button(const std::wstring& designer_name) {
  return make_control<Win32Button>(designer_name, TabStop::yes);
}

PictureBox& Win32FramedWindow::make_picture(const std::wstring& designer_name, PictureKind kind) {
  return make_picture_control(designer_name, kind);
}

TextBox& Win32FramedWindow::make_text_box(const std::wstring& designer_name) {
  return make_control<Win32TextBox>(designer_name);
}

ProgressBar& Win32FramedWindow::make_progress(const std::wstring& designer_name) {
  return make_control<Win32ProgressBar>(designer_name);
}

Frame& Win32FramedWindow::make_frame(const std::wstring& designer_name) {
  return make_control<Win32Frame>(designer_name);
}

Browser& Win32FramedWindow::make_browser(const std::wstring& designer_name) {
  return make_control<Win32Browser>(designer_name);
}

LRESULT CALLBACK Win32FramedWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(l);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    static_cast<Win32FramedWindow*>(creation->lpCreateParams)->window_ = window;
  }
  auto* self = reinterpret_cast<Win32FramedWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr)
    return DefWindowProcW(window, message, w, l);
  LRESULT result = 0;
  guarded([&] { result = self->handle_message(message, w, l); });
  return result;
}

LRESULT Win32FramedWindow::handle_message(UINT message, WPARAM w, LPARAM l) {
  LRESULT result = 0;
  if (handle_child_message(message, w, l, result))
    return result;
  if (handle_size_message(message, w, l) || handle_focus_message(message, w))
    return 0;
  switch (message) {
  case WM_CLOSE:
    fire(on_close);
    return 0;
  case WM_ERASEBKGND:
    return 1;
  case WM_PAINT: {
    PAINTSTRUCT painting{};
    const HDC dc = BeginPaint(window_, &painting);
    draw_ground(dc, painting.rcPaint);
    EndPaint(window_, &painting);
    return 0;
  }
  default:
    return DefWindowProcW(window_, message, w, l);
  }
}

bool Win32FramedWindow::handle_size_message(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
  case WM_GETMINMAXINFO: {
    auto& limits = *reinterpret_cast<MINMAXINFO*>(l);
    limits.ptMinTrackSize.x = std::max<LONG>(limits.ptMinTrackSize.x, pixels(least_width_, dpi_));
    limits.ptMinTrackSize.y = std::max<LONG>(limits.ptMinTrackSize.y, pixels(least_height_, dpi_));
    return true;
  }
  case WM_MOVE:
    if (in_normal_state())
      GetWindowRect(window_, &normal_);
    return false;
  case message_come_back:
    come_back();
    return true;
  case WM_DISPLAYCHANGE:
    if (visible())
      come_into_view();
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

void Win32FramedWindow::draw_ground(HDC target, const RECT& area) {
  FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
}

COLORREF Win32FramedWindow::label_colour(LabelKind kind, bool enabled) const {
  if (!enabled)
    return GetSysColor(COLOR_GRAYTEXT);
  return kind == LabelKind::link ? link_colour() : GetSysColor(COLOR_BTNTEXT);
}

void Win32FramedWindow::set_caption(const std::wstring& caption) {
  caption_ = caption;
  SetWindowTextW(window_, caption.c_str());
}

void Win32FramedWindow::set_visible(bool visible) {
  if (!visible)
    ShowWindow(window_, SW_HIDE);
  else if (minimized())
    ShowWindow(window_, SW_RESTORE);
  else if (!this->visible())
    ShowWindow(window_, SW_SHOW);
  if (visible)
    come_into_view();
}

void Win32FramedWindow::activate() {
  if (!visible())
    return;
  BringWindowToTop(window_);
  SetForegroundWindow(window_);
  if (GetActiveWindow() == window_ && IsChild(window_, GetFocus()) == 0)
    SetFocus(window_);
}

// The system counts a normal place from the corner of the work area, which differs from the desktop's where the task
// bar lies above or at the left. By how much shows when the window leaves a place that is known.
void Win32FramedWindow::note_state(WPARAM state) {
  if (state == SIZE_RESTORED) {
    GetWindowRect(window_, &normal_);
    if (!std::exchange(was_normal_, true))
      PostMessageW(window_, message_come_back, 0, 0);
  } else if (std::exchange(was_normal_, false)) {
    const RECT counted = placement().rcNormalPosition;
    count_from_ = {normal_.left - counted.left, normal_.top - counted.top};
  }
}

WINDOWPLACEMENT Win32FramedWindow::placement() const {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window_, &placement);
  return placement;
}

RECT Win32FramedWindow::normal_place() const {
  RECT place{};
  if (in_normal_state()) {
    GetWindowRect(window_, &place);
    return place;
  }
  place = placement().rcNormalPosition;
  OffsetRect(&place, count_from_.x, count_from_.y);
  return place;
}

void Win32FramedWindow::set_normal_place(const RECT& place) {
  if (in_normal_state()) {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  WINDOWPLACEMENT changed = placement();
  changed.rcNormalPosition = place;
  OffsetRect(&changed.rcNormalPosition, -count_from_.x, -count_from_.y);
  if (!visible())
    changed.showCmd = SW_HIDE; // the state that was read would show the window
  SetWindowPlacement(window_, &changed);
}

// A maximised or minimised window keeps its state; the size is the one that it will come back to.
void Win32FramedWindow::resize(int width, int height) {
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

// After the restoring itself: a window manager may have brought the window back as it went. Only the size is owed. The
// place that was kept may lie on a monitor that has gone since.
void Win32FramedWindow::come_back() {
  if (!in_normal_state())
    return;
  if (owed_)
    resize(owed_->cx, owed_->cy);
  else if (visible())
    come_into_view();
}

// The system does not let a window with such a frame become smaller, whoever wishes it.
POINT Win32FramedWindow::smallest_size() const {
  return {std::max<LONG>(GetSystemMetrics(SM_CXMINTRACK), pixels(least_width_, dpi_)),
          std::max<LONG>(GetSystemMetrics(SM_CYMINTRACK), pixels(least_height_, dpi_))};
}

// Its monitor may be gone, or another resolution has left it outside.
void Win32FramedWindow::come_into_view() {
  constexpr int piece_to_hold = 480; // twips
  RECT place = normal_place();
  if (!in_normal_state() || in_view(place, pixels(piece_to_hold, dpi_)))
    return;
  const POINT corner = place_in_view(place);
  OffsetRect(&place, corner.x - place.left, corner.y - place.top);
  set_normal_place(place);
}

TwipsRect Win32FramedWindow::rect() const {
  const RECT place = normal_place();
  return {twips(place.left, system_dpi_), twips(place.top, system_dpi_), twips(place.right - place.left, dpi_),
          twips(place.bottom - place.top, dpi_)};
}

void Win32FramedWindow::set_minimum(int width, int height) {
  least_width_ = std::max(width, 0);
  least_height_ = std::max(height, 0);
}

int Win32FramedWindow::client_width() const {
  RECT area{};
  GetClientRect(window_, &area);
  return twips(area.right, dpi_);
}

int Win32FramedWindow::client_height() const {
  RECT area{};
  GetClientRect(window_, &area);
  return twips(area.bottom, dpi_);
}

int Win32FramedWindow::frame_height() const {
  RECT around{};
  AdjustWindowRectExForDpi(&around, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)), dpi_);
  return twips(around.bottom - around.top, dpi_);
}

std::unique_ptr<FramedWindow> Win32FramedWindowMaker::make(const std::wstring& name) {
  return std::make_unique<Win32FramedWindow>(loop_, name, icon_);
}

} // namespace lumotune::platform::win32
