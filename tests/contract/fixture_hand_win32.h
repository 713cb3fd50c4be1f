// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "base/lumotune_form.h"
#include "platform/win32/connection.h"
#include "platform/win32/input_box.h"
#include "platform/win32/popup_menus.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::contract {

struct WindowSearch {
  std::wstring class_name;
  std::vector<HWND> found;
};

inline BOOL CALLBACK note_if_seen(HWND window, LPARAM l) {
  auto& search = *reinterpret_cast<WindowSearch*>(l);
  wchar_t name[64];
  GetClassNameW(window, name, 64);
  if (search.class_name == name && IsWindowVisible(window) != 0)
    search.found.push_back(window);
  return TRUE;
}

// The windows of this thread that can be seen, of one class.
inline std::vector<HWND> seen_windows(const std::wstring& class_name) {
  WindowSearch search{class_name, {}};
  EnumThreadWindows(GetCurrentThreadId(), note_if_seen, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline HMENU menu_of(HWND popup) {
  constexpr UINT get_menu = 0x1e1;
  return reinterpret_cast<HMENU>(SendMessageW(popup, get_menu, 0, 0));
}

// The menu that opened first; nullptr when none is open.
inline HMENU open_menu() {
  HMENU first = nullptr;
  for (HWND popup : seen_windows(L"#32768")) {
    const HMENU menu = menu_of(popup);
    bool below_another = false;
    for (HWND other : seen_windows(L"#32768")) {
      for (int i = 0; i < GetMenuItemCount(menu_of(other)); ++i)
        below_another |= GetSubMenu(menu_of(other), i) == menu;
    }
    if (!below_another)
      first = menu;
  }
  return first;
}

inline std::wstring raw_caption(HMENU menu, int position) {
  wchar_t text[1000] = {};
  GetMenuStringW(menu, static_cast<UINT>(position), text, 1000, MF_BYPOSITION);
  return text;
}

// Does one step after the other as the windows for them appear, also inside the system's modal loops.
class Hand {
public:
  using Step = std::function<bool()>; // true when it is done

  explicit Hand(platform::EventLoop& loop) : timer_(loop.make_timer(20, [this] { tick(); })) {}
  void add(Step step) {
    steps_.push_back(std::move(step));
    timer_->start();
  }
  [[nodiscard]] bool idle() const { return steps_.empty(); }

private:
  void tick() {
    if (steps_.empty())
      return;
    const Step step = steps_.front();
    const bool done = step();
    if (!done && ++tries_ < 400)
      return;
    EXPECT_TRUE(done) << "the hand waits in vain";
    if (!done)
      give_up();
    tries_ = 0;
    steps_.pop_front();
  }
  static void give_up() {
    EndMenu();
    for (HWND box : seen_windows(L"#32770"))
      PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  }

  std::unique_ptr<platform::Timer> timer_;
  std::deque<Step> steps_;
  int tries_ = 0;
};

struct HandBackend : Backend {
  platform::win32::PopupMenus popup_menus{real.loop, real.window.handle()};
  platform::win32::InputBox input_box{real.loop, real.window.handle()};
  platform::win32::Dialogs& dialogs = real.dialogs;
  platform::win32::Shell& shell = real.shell;
  platform::win32::Machine& machine = real.machine;
  platform::win32::Connection connection;
  platform::PictureBox& tray_control = window.make_picture(L"TrayIcon", platform::PictureKind::decoration);
  platform::win32::Tray tray{real.window, tray_control};
  Hand hand{real.loop};

  void show_in_front() {
    window.move(4500, 3000);
    window.resize(6000, 3000);
    window.set_visible(true);
    window.activate();
    EXPECT_TRUE(until([this] { return GetForegroundWindow() == window.handle(); }));
  }
  void choose(const std::wstring& /*name*/, const std::wstring& caption) {
    wait_for_menu();
    add_clicks(caption);
  }
  void close_menu() {
    wait_for_menu();
    hand.add([this] { return cancel_menu(); });
  }
  void leave_open() {
    hand.add([this] { return (open_menu() != nullptr || !seen_windows(L"#32770").empty()) && run_while_open(); });
  }
  void answer(platform::BoxAnswer answer) {
    const int button = answer == platform::BoxAnswer::yes ? IDYES : answer == platform::BoxAnswer::no ? IDNO : IDOK;
    wait_for_box();
    hand.add([button] {
      const HWND box = seen_windows(L"#32770").front();
      const HWND found = GetDlgItem(box, button);
      // The only button of a box is its closing one too, and has that number.
      PostMessageW(found != nullptr ? found : GetDlgItem(box, IDCANCEL), BM_CLICK, 0, 0);
      return true;
    });
  }
  void enter(const std::wstring& text) {
    wait_for_box();
    hand.add([text] {
      const HWND box = seen_windows(L"#32770").front();
      SetFocus(GetDlgItem(box, 101));
      SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
      SendMessageW(GetFocus(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
      PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
      return true;
    });
  }
  void cancel() {
    wait_for_box();
    hand.add([] {
      PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
      return true;
    });
  }
  void while_open(const std::function<void()>& work) { while_open_ = work; }
  // The user leaves the next menu or box open for so long before anything is done with it.
  void stay_open(std::uint32_t ms) { stay_open_ms_ = ms; }
  // The shell knows the icon by its window and number.
  [[nodiscard]] bool tray_icon_is_there() {
    NOTIFYICONDATAW icon{};
    icon.cbSize = NOTIFYICONDATAW_V1_SIZE;
    icon.hWnd = window.handle_of(tray_control);
    icon.uID = 1;
    return Shell_NotifyIconW(NIM_MODIFY, &icon) != 0;
  }

private:
  void wait_for_menu() {
    hand.add([this] { return open_menu() != nullptr && stayed_open() && run_while_open(); });
  }
  void wait_for_box() {
    hand.add([this] { return !seen_windows(L"#32770").empty() && stayed_open() && run_while_open(); });
  }
  bool stayed_open() {
    const DWORD now = GetTickCount();
    if (!open_since_)
      open_since_ = now;
    if (now - *open_since_ < stay_open_ms_)
      return false;
    open_since_.reset();
    stay_open_ms_ = 0;
    return true;
  }
  bool run_while_open() {
    if (const auto work = std::exchange(while_open_, {}))
      work();
    return true;
  }
  // As the system does it, through the window that has the menu: the one in front, or the main window while hidden.
  bool cancel_menu() {
    for (HWND owner : {GetForegroundWindow(), window.handle()})
      SendMessageW(owner, WM_CANCELMODE, 0, 0);
    return true;
  }
  // Presses and releases the mouse over each item on the way to the one with that caption.
  void add_clicks(const std::wstring& caption) {
    struct Way {
      HMENU menu = nullptr;
      bool pressed = false;
    };
    const auto way = std::make_shared<Way>();
    hand.add([this, way, caption] {
      if (way->menu == nullptr)
        way->menu = open_menu();
      const int position = step_towards(way->menu, caption);
      RECT place{};
      if (position < 0 || (GetMenuState(way->menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_GRAYED) != 0)
        return cancel_menu();
      if (!is_shown(way->menu) || GetMenuItemRect(nullptr, way->menu, static_cast<UINT>(position), &place) == 0)
        return false;
      SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
      mouse_event(way->pressed ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
      way->pressed = !way->pressed;
      if (way->pressed)
        return false;
      way->menu = GetSubMenu(way->menu, position);
      return way->menu == nullptr;
    });
  }
  static bool is_shown(HMENU menu) {
    for (HWND popup : seen_windows(L"#32768")) {
      if (menu_of(popup) == menu)
        return true;
    }
    return false;
  }
  // Where the item is, or the submenu that holds it; -1 when it is not below this menu.
  static int step_towards(HMENU menu, const std::wstring& caption) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      const HMENU below = GetSubMenu(menu, i);
      if (below != nullptr ? step_towards(below, caption) >= 0 : raw_caption(menu, i) == caption)
        return i;
    }
    return -1;
  }

  std::function<void()> while_open_;
  std::optional<DWORD> open_since_;
  DWORD stay_open_ms_ = 0;
};

} // namespace lumotune::contract
