// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/win32/backend.h"

#include <string>

namespace lumotune::contract {

// A scratch folder of its own, emptied at the end.
class ScratchFolder {
public:
  ScratchFolder() {
    wchar_t base[MAX_PATH];
    GetTempPathW(MAX_PATH, base);
    path_ = std::wstring(base) + L"lumotune pokus č " + std::to_wstring(GetCurrentProcessId()) + L"." +
            std::to_wstring(GetTickCount());
    CreateDirectoryW(path_.c_str(), nullptr);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    for (const auto& name : platform::win32::Win32Files().list(path_, L"*"))
      DeleteFileW((path_ + L"\\" + name).c_str());
    RemoveDirectoryW(path_.c_str());
  }
  [[nodiscard]] const std::wstring& path() const { return path_; }

private:
  std::wstring path_;
};

struct Backend {
  platform::win32::Backend real{1};
  ScratchFolder scratch;

  platform::win32::Win32EventLoop& loop = real.loop;
  platform::win32::Win32Files& files = real.files;
  platform::win32::Win32Codec& codec = real.codec;
  platform::win32::Win32Window& window = real.window;
  platform::win32::Win32FramedWindowMaker& framed_windows = real.framed_windows;
  platform::win32::Win32Messages& messages = real.messages;
  std::wstring folder = scratch.path();

  // A window manager answers late, and what it says of an earlier wish would be taken for its answer to the next.
  static constexpr std::uint32_t window_manager_ms = 250;

  void pass(std::uint32_t ms) {
    const DWORD start = GetTickCount();
    do {
      if (!loop.wait_a_little())
        return;
    } while (GetTickCount() - start <= ms);
  }
  template <typename Fact>
  [[nodiscard]] bool until(const Fact& fact) {
    const DWORD start = GetTickCount();
    loop.run_pending(); // what has been posted comes first
    while (!fact() && GetTickCount() - start < 30000) {
      if (!loop.wait_a_little())
        break;
    }
    return fact();
  }
  // The user's keyboard: goes to another window, moves by Tab; where it is, as the control's name, empty for none.
  void leave() {
    if (other_ == nullptr)
      other_ =
          CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(other_);
    SetFocus(other_);
    (void)until([this] { return GetForegroundWindow() == other_; });
    pass(window_manager_ms);
  }
  // The window itself, or a control of it.
  [[nodiscard]] bool has_keyboard() const {
    const HWND focus = GetFocus();
    return GetForegroundWindow() == window.handle() && focus != nullptr &&
           (focus == window.handle() || IsChild(window.handle(), focus) != 0);
  }
  void tab(bool back = false) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[VK_SHIFT] = back ? 0x80 : 0;
    SetKeyboardState(keys);
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    loop.run_pending();
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
  }
  [[nodiscard]] std::wstring keyboard_at() {
    std::wstring name;
    if (GetFocus() != nullptr && IsChild(window.handle(), GetFocus()) != 0)
      EnumPropsExW(GetFocus(), note_name, reinterpret_cast<LPARAM>(&name));
    return name;
  }
  // The key for menus, where the keyboard is; the right button over the main window's background.
  void menu_key() {
    SendMessageW(GetFocus(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(GetFocus()), -1); // what the system makes of it
  }
  void right_click() {
    for (const UINT message : {WM_RBUTTONDOWN, WM_RBUTTONUP})
      PostMessageW(window.handle(), message, message == WM_RBUTTONUP ? 0 : MK_RBUTTON, MAKELPARAM(5, 5));
    loop.run_pending();
  }
  template <typename Control>
  void double_click(const Control& control) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
      PostMessageW(window.handle_of(control), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(2, 2));
      loop.run_pending();
    }
  }
  // The same for framed windows.
  static HWND handle(platform::FramedWindow& framed) {
    return dynamic_cast<platform::win32::Win32FramedWindow&>(framed).handle();
  }
  void show(platform::FramedWindow& framed, int command) {
    ShowWindow(handle(framed), command);
    (void)until([&] {
      const bool small = IsIconic(handle(framed)) != 0;
      const bool large = IsZoomed(handle(framed)) != 0;
      return small == (command == SW_MINIMIZE) && large == (command == SW_MAXIMIZE);
    });
    pass(window_manager_ms);
  }
  void enter(platform::FramedWindow& framed, const platform::TreeView& tree) {
    const HWND control = dynamic_cast<platform::win32::Win32FramedWindow&>(framed).handle_of(tree);
    SetFocus(control);
    PostMessageW(control, WM_KEYDOWN, VK_RETURN, 1);
    pass(20);
    PostMessageW(control, WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xc0000001));
    pass(20);
  }
  void minimize(platform::FramedWindow& framed) { show(framed, SW_MINIMIZE); }
  void maximize(platform::FramedWindow& framed) { show(framed, SW_MAXIMIZE); }
  void restore(platform::FramedWindow& framed) { show(framed, SW_RESTORE); }
  platform::TwipsRect work_area(platform::FramedWindow& framed) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(handle(framed), MONITOR_DEFAULTTONEAREST), &info);
    const RECT& room = info.rcWork;
    return {MulDiv(room.left, 1440, 96), MulDiv(room.top, 1440, 96), MulDiv(room.right - room.left, 1440, 96),
            MulDiv(room.bottom - room.top, 1440, 96)};
  }
  long deliver(const std::string& bytes, std::uint32_t kind) {
    std::string text = bytes;
    COPYDATASTRUCT record{};
    record.dwData = kind;
    record.cbData = static_cast<DWORD>(text.size());
    record.lpData = text.empty() ? nullptr : text.data();
    return static_cast<long>(SendMessageA(window.handle(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record)));
  }
  Backend() = default;
  Backend(const Backend&) = delete;
  Backend& operator=(const Backend&) = delete;
  ~Backend() {
    if (other_ != nullptr)
      DestroyWindow(other_);
  }

private:
  static BOOL CALLBACK note_name(HWND /*control*/, LPWSTR property, HANDLE /*data*/, ULONG_PTR into) {
    const std::wstring_view prefix = L"Lumotune.";
    if (reinterpret_cast<ULONG_PTR>(property) > 0xffff && std::wstring_view(property).starts_with(prefix))
      *reinterpret_cast<std::wstring*>(into) = property + prefix.size();
    return TRUE;
  }
  HWND other_ = nullptr; // a window of another program, as far as ours can tell
};

} // namespace lumotune::contract
