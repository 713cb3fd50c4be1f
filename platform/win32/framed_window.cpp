// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/framed_window.h"

#include "platform/win32/browser.h"
#include "platform/win32/dpi.h"
#include "platform/win32/frame.h"
#include "platform/win32/list_view.h"
#include "platform/win32/text_box.h"
#include "platform/win32/text_entry.h"
#include "platform/win32/tree_view.h"

#include <algorithm>
#include <cmath>

namespace lumotune::platform::win32 {
namespace {

constexpr const wchar_t* class_name = L"LumotuneFramedWindow";
constexpr int first_width = 9000; // twips
constexpr int first_height = 6000;

// The contrast ratio as perceived: 1 for equal lightness, 21 for black on white.
double contrast(COLORREF one, COLORREF other) {
  const auto light = [](COLORREF colour) {
    const auto part = [](unsigned value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * part(GetRValue(colour)) + 0.7152 * part(GetGValue(colour)) + 0.0722 * part(GetBValue(colour));
  };
  const double first = light(one) + 0.05;
  const double second = light(other) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

// The system's link colour where it is readable on the background; not every colour scheme ensures that.
COLORREF link_colour() {
  constexpr double readable = 4.5;
  for (const COLORREF wished : {GetSysColor(COLOR_HOTLIGHT), RGB(0, 102, 204), RGB(120, 180, 255)}) {
    if (contrast(wished, GetSysColor(COLOR_3DFACE)) >= readable)
      return wished;
  }
  return GetSysColor(COLOR_BTNTEXT);
}

} // namespace

FramedWindow::FramedWindow(EventLoop& loop, const std::wstring& name, int icon)
    : ControlHost(loop, name, FontSize::chosen), recheck_(loop, [this] { look_at_screen(); }) {
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

FramedWindow::~FramedWindow() {
  destroy_controls();
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  RemovePropW(window_, (window_name() + L".Form").c_str());
  DestroyWindow(window_);
}

platform::TreeView& FramedWindow::make_tree(const std::wstring& designer_name) {
  return make_control<TreeView>(designer_name);
}

platform::ListView& FramedWindow::make_list_view(const std::wstring& designer_name) {
  return make_control<ListView>(designer_name);
}

platform::Label& FramedWindow::make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) {
  return make_control<Label>(designer_name, kind, font);
}

platform::Button& FramedWindow::make_button(const std::wstring& designer_name) {
  return make_control<Button>(designer_name, TabStop::yes);
}

platform::PictureBox& FramedWindow::make_picture(const std::wstring& designer_name, PictureKind kind) {
  return make_picture_control(designer_name, kind);
}

platform::TextBox& FramedWindow::make_text_box(const std::wstring& designer_name) {
  return make_control<TextBox>(designer_name);
}

platform::TextEntry& FramedWindow::make_text_entry(const std::wstring& designer_name) {
  return make_control<TextEntry>(designer_name);
}

platform::ProgressBar& FramedWindow::make_progress(const std::wstring& designer_name) {
  return make_control<ProgressBar>(designer_name);
}

platform::Frame& FramedWindow::make_frame(const std::wstring& designer_name) {
  return make_control<Frame>(designer_name);
}

platform::Browser& FramedWindow::make_browser(const std::wstring& designer_name) {
  return make_control<Browser>(designer_name);
}

LRESULT CALLBACK FramedWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(l);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    static_cast<FramedWindow*>(creation->lpCreateParams)->window_ = window;
  }
  auto* self = reinterpret_cast<FramedWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr)
    return DefWindowProcW(window, message, w, l);
  LRESULT result = 0;
  self->caught().guard([&] { result = self->handle_message(message, w, l); });
  return result;
}

LRESULT FramedWindow::handle_message(UINT message, WPARAM w, LPARAM l) {
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

// Ctrl with Alt is AltGr, which types letters.
bool FramedWindow::window_input(const MSG& message) {
  if (message.message != WM_KEYDOWN)
    return false;
  const auto held = [](int key) { return GetKeyState(key) < 0; };
  std::optional<FramedWindowKey> key;
  if (message.wParam == 'F' && held(VK_CONTROL) && !held(VK_MENU) && !held(VK_SHIFT))
    key = FramedWindowKey::find;
  else if (message.wParam == VK_ESCAPE && !held(VK_CONTROL) && !held(VK_SHIFT))
    key = FramedWindowKey::escape;
  bool used = false;
  if (const auto copy = on_window_key; key && copy)
    caught().guard([&] { used = copy(*key); });
  return used;
}

void FramedWindow::draw_ground(HDC target, const RECT& area) {
  FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
}

COLORREF FramedWindow::label_colour(LabelKind kind, bool enabled) const {
  if (!enabled)
    return GetSysColor(COLOR_GRAYTEXT);
  return kind == LabelKind::link ? link_colour() : GetSysColor(COLOR_BTNTEXT);
}

void FramedWindow::set_caption(const std::wstring& caption) {
  check_thread();
  caption_ = caption;
  SetWindowTextW(window_, caption.c_str());
}

void FramedWindow::set_visible(bool visible) {
  check_thread();
  if (!visible)
    ShowWindow(window_, SW_HIDE);
  else if (minimized())
    ShowWindow(window_, SW_RESTORE);
  else if (!this->visible())
    ShowWindow(window_, SW_SHOW);
  if (visible)
    come_into_view();
}

void FramedWindow::activate() {
  check_thread();
  if (!visible())
    return;
  BringWindowToTop(window_);
  SetForegroundWindow(window_);
  if (GetActiveWindow() == window_ && IsChild(window_, GetFocus()) == 0)
    SetFocus(window_);
}

std::unique_ptr<platform::FramedWindow> FramedWindowMaker::make(const std::wstring& name) {
  loop_.check_thread();
  return std::make_unique<FramedWindow>(loop_, name, icon_);
}

} // namespace lumotune::platform::win32
