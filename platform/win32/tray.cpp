// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/tray.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

// A small icon at the task bar's current resolution, which may have changed since the program's start.
int icon_side(int metric) {
  const HWND bar = FindWindowW(L"Shell_TrayWnd", nullptr);
  const UINT dpi = bar == nullptr ? 0 : GetDpiForWindow(bar);
  return GetSystemMetricsForDpi(metric, dpi == 0 ? GetDpiForSystem() : dpi);
}

} // namespace

// Character by character: in a page of several bytes a character (UTF-8 too) the cut must not fall into one.
std::string tip_bytes(std::wstring_view tip, UINT code_page, std::size_t most) {
  std::string bytes;
  while (!tip.empty()) {
    const std::size_t units = tip.size() > 1 && IS_SURROGATE_PAIR(tip[0], tip[1]) ? 2 : 1;
    char encoded[16];
    const int length = WideCharToMultiByte(code_page, 0, tip.data(), static_cast<int>(units), encoded, sizeof encoded,
                                           nullptr, nullptr);
    const auto room = static_cast<std::size_t>(std::max(length, 0));
    if (bytes.size() + room > most)
      break;
    bytes.append(encoded, room);
    tip.remove_prefix(units);
  }
  return bytes;
}

// The first form of the record is all that is used; the fields after it stay empty.
Tray::Tray(Window& window, const Control& receiver) : window_(window) {
  record_.cbSize = NOTIFYICONDATAA_V1_SIZE;
  record_.hWnd = window.handle_of(receiver);
  record_.uID = 1;
  record_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  record_.uCallbackMessage = WM_MOUSEMOVE;
  load_icon();
  // The shell also says so when the task bar has another resolution.
  window_.on_shell_restart = [this] {
    load_icon();
    if (added_)
      Shell_NotifyIconA(NIM_ADD, &record_);
  };
}

Tray::~Tray() {
  window_.on_shell_restart = {};
  remove();
}

// The main window's icon, from the picture that is drawn for that size: one made smaller by the shell is blurred.
void Tray::load_icon() {
  IconHandle loaded(static_cast<HICON>(
      CopyImage(window_.icon(), IMAGE_ICON, icon_side(SM_CXSMICON), icon_side(SM_CYSMICON), LR_COPYFROMRESOURCE)));
  record_.hIcon = loaded == nullptr ? window_.icon() : loaded.get();
  icon_ = std::move(loaded);
}

// In the system's code page, whichever it is: the program's own text files may be in another one.
void Tray::fill_tip(const std::wstring& tip) {
  const std::string bytes = tip_bytes(tip, CP_ACP, max_tip);
  std::memset(record_.szTip, 0, sizeof record_.szTip);
  std::memcpy(record_.szTip, bytes.data(), bytes.size());
}

void Tray::add(const std::wstring& tip) {
  thread_.check();
  fill_tip(tip);
  Shell_NotifyIconA(NIM_ADD, &record_);
  added_ = true; // also while no shell runs: TaskbarCreated announces it
}

void Tray::modify(const std::wstring& tip) {
  thread_.check();
  if (!added_)
    return;
  fill_tip(tip);
  Shell_NotifyIconA(NIM_MODIFY, &record_);
}

void Tray::remove() {
  thread_.check();
  if (added_)
    Shell_NotifyIconA(NIM_DELETE, &record_);
  added_ = false;
}

} // namespace lumotune::platform::win32
