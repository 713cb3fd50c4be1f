// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/popup_menus.h"

#include "platform/win32/controls.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

namespace lumotune::platform::win32 {
namespace {

// A longer caption would be wider than any screen. Station names and addresses come from outside.
constexpr std::size_t most_shown = 300;

struct DestroyMenuHandle {
  using pointer = HMENU;
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using MenuHandle = std::unique_ptr<void, DestroyMenuHandle>;

// Hook procedures get no user data, so this is thread-local, like the hook itself.
thread_local bool last_input_was_key = false;

// Sees every message that the thread retrieves, in modal loops too. Button releases count as well: a held key repeats
// between a button's two messages.
LRESULT CALLBACK note_input(int code, WPARAM w, LPARAM l) {
  if (code == HC_ACTION && w == PM_REMOVE) {
    const UINT message = reinterpret_cast<const MSG*>(l)->message;
    if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN)
      last_input_was_key = true;
    else if ((message > WM_MOUSEMOVE && message <= WM_MOUSELAST) ||
             (message > WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK))
      last_input_was_key = false;
  }
  return CallNextHookEx(nullptr, code, w, l);
}

// "&" would underline the next letter, a tab would start a second column.
std::wstring shown_caption(const std::wstring& caption) {
  std::wstring shown;
  for (const wchar_t letter : caption.substr(0, most_shown)) {
    shown += letter < L' ' ? L' ' : letter;
    if (letter == L'&')
      shown += letter;
  }
  return caption.size() > most_shown ? shown + L"…" : shown;
}

bool any_visible(const std::vector<MenuItem>& items) {
  return std::any_of(items.begin(), items.end(), [](const MenuItem& item) { return item.visible; });
}

// Appends the name of each selectable item to `names`; an item's identifier is its position there, from 1. Names are
// copied, because the tree may have changed by the time the user chooses.
MenuHandle build(const std::vector<MenuItem>& items, std::vector<std::wstring>& names) {
  MenuHandle menu(CreatePopupMenu());
  for (const MenuItem& item : items) {
    if (!item.visible)
      continue;
    if (item.separator) {
      AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      continue;
    }
    // A submenu without visible items would open as an empty frame.
    const bool empty_submenu = !item.children.empty() && !any_visible(item.children);
    UINT flags = MF_STRING;
    flags |= item.checked ? MF_CHECKED : MF_UNCHECKED;
    flags |= item.enabled && !empty_submenu ? MF_ENABLED : MF_GRAYED;
    MenuHandle below = item.children.empty() || empty_submenu ? MenuHandle() : build(item.children, names);
    UINT_PTR number = 0;
    if (below != nullptr) {
      flags |= MF_POPUP;
      number = reinterpret_cast<UINT_PTR>(below.get());
    } else {
      names.push_back(item.name);
      number = names.size();
    }
    if (AppendMenuW(menu.get(), flags, number, shown_caption(item.caption).c_str()) != 0)
      (void)below.release(); // the menu above destroys it
  }
  return menu;
}

// The selected row of a list; the whole control where there is none, or where it is out of sight.
RECT place_of(HWND control) {
  RECT whole{};
  GetClientRect(control, &whole);
  RECT row = whole;
  std::wstring kind(64, L'\0');
  kind.resize(static_cast<std::size_t>(RealGetWindowClassW(control, kind.data(), static_cast<UINT>(kind.size()))));
  if (_wcsicmp(kind.c_str(), L"LISTBOX") == 0) {
    const LRESULT selected = SendMessageW(control, LB_GETCURSEL, 0, 0);
    if (selected >= 0)
      SendMessageW(control, LB_GETITEMRECT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(&row));
  } else if (_wcsicmp(kind.c_str(), WC_LISTVIEWW) == 0) {
    const LRESULT selected = SendMessageW(control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    row.left = LVIR_LABEL;
    if (selected < 0 ||
        SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(&row)) == FALSE)
      row = whole;
  }
  RECT seen{};
  if (IntersectRect(&seen, &row, &whole) == 0)
    seen = whole;
  MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&seen), 2);
  return seen;
}

// Waits for the user; the number of the chosen item, 0 for none.
UINT track(HMENU menu, HWND owner, HWND anchor) {
  TPMPARAMS keep_free{};
  keep_free.cbSize = sizeof keep_free;
  POINT at{};
  GetCursorPos(&at);
  const bool by_key = anchor != nullptr && last_input_was_key;
  const bool at_anchor = by_key && IsWindowVisible(anchor) != 0;
  if (at_anchor) {
    keep_free.rcExclude = place_of(anchor);
    at = {keep_free.rcExclude.left, keep_free.rcExclude.bottom};
  } else if (by_key && IsWindowVisible(owner) != 0) {
    at = {0, 0};
    ClientToScreen(owner, &at);
  }
  // Menus open to the left where the system is set for right-handed users.
  const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
  // Unless its owner is in the foreground, a notification-area menu does not close on a click elsewhere.
  SetForegroundWindow(owner);
  const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_VERTICAL | side;
  const BOOL chosen = TrackPopupMenuEx(menu, flags, at.x, at.y, owner, at_anchor ? &keep_free : nullptr);
  PostMessageW(owner, WM_NULL, 0, 0); // otherwise the next menu would close at once
  return static_cast<UINT>(chosen);
}

} // namespace

PopupMenus::PopupMenus(platform::EventLoop& loop, HWND owner)
    : loop_(loop),
      owner_(owner),
      input_hook_(SetWindowsHookExW(WH_GETMESSAGE, note_input, nullptr, GetCurrentThreadId())),
      end_watch_(loop, [] { EndMenu(); }) {}

PopupMenus::~PopupMenus() {
  if (input_hook_ != nullptr)
    UnhookWindowsHookEx(input_hook_);
}

std::wstring PopupMenus::pop_up(const std::vector<MenuItem>& items, const Control* anchor) {
  if (open_ || loop_.ending() || !any_visible(items))
    return {};
  std::vector<std::wstring> names;
  const MenuHandle menu = build(items, names);
  const auto* child = dynamic_cast<const ChildWindow*>(anchor);
  const HWND window = child == nullptr ? nullptr : child->handle();
  open_ = true;
  const UINT chosen = end_watch_.during(
      [&] { return track(menu.get(), window == nullptr ? owner_ : GetAncestor(window, GA_ROOT), window); });
  open_ = false;
  return chosen >= 1 && chosen <= names.size() ? names[chosen - 1] : std::wstring();
}

} // namespace lumotune::platform::win32
