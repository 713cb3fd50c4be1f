// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/dialogs.h"

#include <array>
#include <string_view>

namespace lumotune::platform::win32 {
namespace {

bool is_box(HWND window) {
  std::array<wchar_t, 8> name{};
  return GetClassNameW(window, name.data(), static_cast<int>(name.size())) > 0 &&
         std::wstring_view(name.data()) == L"#32770";
}

BOOL CALLBACK close_box(HWND window, LPARAM /*unused*/) {
  if (is_box(window))
    EndDialog(window, IDNO);
  return TRUE;
}

// The first one is the topmost: of nested boxes the one that can be answered.
BOOL CALLBACK find_box(HWND window, LPARAM found) {
  if (!is_box(window) || IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0)
    return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

} // namespace

Dialogs::Dialogs(platform::EventLoop& loop, HWND owner)
    : loop_(loop), owner_(owner), end_watch_(loop, [] { EnumThreadWindows(GetCurrentThreadId(), close_box, 0); }) {}

bool Dialogs::bring_forward() {
  HWND box = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), find_box, reinterpret_cast<LPARAM>(&box));
  if (box == nullptr)
    return false;
  BringWindowToTop(box);
  SetForegroundWindow(box);
  return true;
}

BoxAnswer Dialogs::message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) {
  const BoxAnswer unanswered = buttons == BoxButtons::yes_no ? BoxAnswer::no : BoxAnswer::ok;
  if (loop_.ending())
    return unanswered;
  UINT style = MB_SETFOREGROUND;
  style |= icon == BoxIcon::information ? MB_ICONINFORMATION : 0U;
  style |= buttons == BoxButtons::yes_no ? MB_YESNO : MB_OK;
  // Owned by this program's active window. A box owned by a hidden window would have no task-bar button and could be
  // lost behind other windows.
  const HWND active = GetActiveWindow();
  const HWND owner = active != nullptr ? active : owner_;
  const HWND shown = IsWindowVisible(owner) != 0 ? owner : nullptr;
  const int button = end_watch_.during([&] { return MessageBoxW(shown, text.c_str(), title.c_str(), style); });
  return button == IDYES ? BoxAnswer::yes : unanswered;
}

} // namespace lumotune::platform::win32
