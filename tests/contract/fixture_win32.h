// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/win32/backend.h"
#include "tests/contract/scratch_folder_win32.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::contract {

inline std::wstring text_of(HWND window) {
  std::wstring text(3000, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 3000)));
  return text;
}

struct Backend {
  platform::win32::Backend real{L"Lumotune", 1};
  ScratchFolder scratch;

  platform::win32::EventLoop& loop = real.loop;
  platform::win32::Files& files = real.files;
  platform::win32::Codec& codec = real.codec;
  platform::win32::Window& window = real.window;
  platform::win32::FramedWindowMaker& framed_windows = real.framed_windows;
  platform::win32::Messages& messages = real.messages;
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
  [[nodiscard]] bool has_keyboard() const { return keyboard_is_in(window.handle()); }
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
  [[nodiscard]] std::wstring keyboard_at() { return keyboard_in(window.handle()); }
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
  // The mouse on the middle of a control of the main window, wherever that is.
  void press(const platform::Control& control) {
    const HWND target = window.handle_of(control);
    RECT area{};
    GetClientRect(target, &area);
    POINT at{(area.left + area.right) / 2 + aimed_++ % 2, (area.top + area.bottom) / 2};
    ClientToScreen(target, &at);
    SetCursorPos(at.x, at.y);
    click(platform::MouseButton::left);
  }
  // The same for framed windows.
  static HWND handle(platform::FramedWindow& framed) {
    return dynamic_cast<platform::win32::FramedWindow&>(framed).handle();
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
    const HWND control = dynamic_cast<platform::win32::FramedWindow&>(framed).handle_of(tree);
    SetFocus(control);
    PostMessageW(control, WM_KEYDOWN, VK_RETURN, 1);
    pass(20);
    PostMessageW(control, WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xc0000001));
    pass(20);
  }
  void leave(platform::FramedWindow& /*framed*/) { leave(); }
  void tab(platform::FramedWindow& /*framed*/, bool back = false) { tab(back); }
  [[nodiscard]] bool has_keyboard(platform::FramedWindow& framed) const { return keyboard_is_in(handle(framed)); }
  [[nodiscard]] std::wstring keyboard_at(platform::FramedWindow& framed) { return keyboard_in(handle(framed)); }
  // The mouse on a row of a list or a node of a tree, where they lie on the screen; the arrow key down.
  void press(platform::FramedWindow& framed, const platform::ListView& list, std::size_t row,
             platform::MouseButton button = platform::MouseButton::left) {
    aim(framed, list, row);
    click(button);
  }
  void press(platform::FramedWindow& framed, const platform::TreeView& tree, std::size_t node) {
    const HWND control = control_of(framed, tree);
    auto item = SendMessageW(control, TVM_GETNEXTITEM, TVGN_ROOT, 0);
    for (std::size_t i = 1; item != 0 && i < node; ++i)
      item = SendMessageW(control, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
    RECT area{};
    std::memcpy(&area, &item, sizeof item);
    SendMessageW(control, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area));
    aim(control, area);
    click(platform::MouseButton::left);
  }
  void press_twice(platform::FramedWindow& framed, const platform::ListView& list, std::size_t row) {
    aim(framed, list, row);
    click(platform::MouseButton::left);
    click(platform::MouseButton::left);
  }
  void arrow(platform::FramedWindow& /*framed*/, const platform::Control& /*list*/) {
    for (const UINT message : {WM_KEYDOWN, WM_KEYUP}) {
      PostMessageW(GetFocus(), message, VK_DOWN, message == WM_KEYUP ? static_cast<LPARAM>(0xc0000001) : 1);
      pass(20);
    }
  }
  // Keys where the keyboard is: letters over what is selected there, Enter, a key of the window.
  void write(platform::FramedWindow& /*framed*/, platform::TextEntry& /*entry*/, const std::wstring& text) {
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    if (text.empty())
      PostMessageW(GetFocus(), WM_KEYDOWN, VK_DELETE, 1);
    for (const wchar_t letter : text)
      PostMessageW(GetFocus(), WM_CHAR, letter, 1);
    loop.run_pending();
  }
  void enter(platform::FramedWindow& /*framed*/, platform::TextEntry& /*entry*/) {
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    loop.run_pending();
  }
  void window_key(platform::FramedWindow& /*framed*/, platform::FramedWindowKey key) {
    BYTE keys[256];
    GetKeyboardState(keys);
    const bool find = key == platform::FramedWindowKey::find;
    keys[VK_CONTROL] = find ? 0x80 : 0;
    SetKeyboardState(keys);
    if (GetFocus() != nullptr)
      PostMessageW(GetFocus(), WM_KEYDOWN, find ? 'F' : VK_ESCAPE, 1);
    loop.run_pending();
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
  }
  // How often screen readers are told of that label by the work.
  template <typename Work>
  [[nodiscard]] std::size_t announced(platform::FramedWindow& framed, const platform::Label& label, const Work& work) {
    live_regions.clear();
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, nullptr,
                                               note_live_region, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    work();
    pass(50);
    UnhookWinEvent(hook);
    return static_cast<std::size_t>(std::count(live_regions.begin(), live_regions.end(), control_of(framed, label)));
  }
  // A program that arranges windows puts it where no monitor is; the system says that the monitors are others now.
  void move_away(platform::FramedWindow& framed) {
    SetWindowPos(handle(framed), nullptr, 15000, 9000, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  // The user moves it to the lower right of the screen, where so many twips of it stay in sight.
  void move_to_corner(platform::FramedWindow& framed, int shown) {
    const int left = GetSystemMetrics(SM_CXSCREEN) - MulDiv(shown, 96, 1440);
    const int top = GetSystemMetrics(SM_CYSCREEN) - MulDiv(shown, 96, 1440);
    SetWindowPos(handle(framed), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    (void)until([&] {
      RECT place{};
      GetWindowRect(handle(framed), &place);
      return std::abs(place.left - left) < 5 && std::abs(place.top - top) < 5;
    });
    pass(window_manager_ms);
  }
  void monitors_change(platform::FramedWindow& framed) {
    SendMessageW(handle(framed), WM_DISPLAYCHANGE, 32,
                 MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
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
  static inline std::vector<HWND> live_regions; // the hook has no other way to hand over what it sees
  static void CALLBACK note_live_region(HWINEVENTHOOK /*hook*/, DWORD /*event*/, HWND window, LONG object,
                                        LONG /*child*/, DWORD /*thread*/, DWORD /*time*/) {
    if (object == OBJID_CLIENT)
      live_regions.push_back(window);
  }
  static bool keyboard_is_in(HWND top) {
    const HWND focus = GetFocus();
    return GetForegroundWindow() == top && focus != nullptr && (focus == top || IsChild(top, focus) != 0);
  }
  static std::wstring keyboard_in(HWND top) {
    std::wstring name;
    if (GetFocus() != nullptr && IsChild(top, GetFocus()) != 0)
      EnumPropsExW(GetFocus(), note_name, reinterpret_cast<LPARAM>(&name));
    return name;
  }
  static HWND control_of(platform::FramedWindow& framed, const platform::Control& control) {
    return dynamic_cast<platform::win32::FramedWindow&>(framed).handle_of(control);
  }
  // Each time some pixels aside: two presses at one place would be a double click.
  void aim(HWND control, const RECT& area) {
    constexpr LONG aside = 12;
    POINT at{area.left + aside + (aimed_++ % 2) * aside, (area.top + area.bottom) / 2};
    ClientToScreen(control, &at);
    SetCursorPos(at.x, at.y);
  }
  void aim(platform::FramedWindow& framed, const platform::ListView& list, std::size_t row) {
    RECT area{};
    area.left = LVIR_BOUNDS;
    SendMessageW(control_of(framed, list), LVM_GETITEMRECT, row - 1, reinterpret_cast<LPARAM>(&area));
    aim(control_of(framed, list), area);
  }
  void click(platform::MouseButton button) {
    const bool right = button == platform::MouseButton::right;
    for (const DWORD move :
         {right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN, right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP}) {
      mouse_event(move, 0, 0, 0, 0);
      pass(20);
    }
  }
  static BOOL CALLBACK note_name(HWND /*control*/, LPWSTR property, HANDLE /*data*/, ULONG_PTR into) {
    for (const std::wstring_view prefix : {L"Lumotune.", L"ListRadios."}) {
      if (reinterpret_cast<ULONG_PTR>(property) > 0xffff && std::wstring_view(property).starts_with(prefix))
        *reinterpret_cast<std::wstring*>(into) = property + prefix.size();
    }
    return TRUE;
  }
  int aimed_ = 0;
  HWND other_ = nullptr; // a window of another program, as far as ours can tell
};

} // namespace lumotune::contract
