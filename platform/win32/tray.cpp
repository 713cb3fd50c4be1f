// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/tray.h"

#include <algorithm>
#include <cstring>

namespace lumotune::platform::win32 {

// The first form of the record is all that is used; the fields after it stay empty.
Win32Tray::Win32Tray(Win32Window& window, const Control& receiver, const AnsiCodec& codec)
    : window_(window), codec_(codec) {
  record_.cbSize = NOTIFYICONDATAA_V1_SIZE;
  record_.hWnd = window.handle_of(receiver);
  record_.uID = 1;
  record_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  record_.uCallbackMessage = WM_MOUSEMOVE;
  record_.hIcon = window.icon();
  window_.on_shell_restart = [this] {
    if (added_)
      Shell_NotifyIconA(NIM_ADD, &record_);
  };
}

Win32Tray::~Win32Tray() {
  window_.on_shell_restart = {};
  remove();
}

void Win32Tray::fill_tip(const std::wstring& tip) {
  const std::string bytes = codec_.encode(tip.substr(0, max_tip));
  std::memset(record_.szTip, 0, sizeof record_.szTip);
  std::memcpy(record_.szTip, bytes.data(), std::min(bytes.size(), max_tip));
}

void Win32Tray::add(const std::wstring& tip) {
  fill_tip(tip);
  Shell_NotifyIconA(NIM_ADD, &record_);
  added_ = true; // also where no shell runs yet: it will say when it does
}

void Win32Tray::modify(const std::wstring& tip) {
  if (!added_)
    return;
  fill_tip(tip);
  Shell_NotifyIconA(NIM_MODIFY, &record_);
}

void Win32Tray::remove() {
  if (added_)
    Shell_NotifyIconA(NIM_DELETE, &record_);
  added_ = false;
}

} // namespace lumotune::platform::win32
