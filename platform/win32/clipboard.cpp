// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/clipboard.h"

#include <cstring>

namespace lumotune::platform::win32 {
namespace {

// Programs that watch the clipboard open it for a moment after each change.
bool open_clipboard(HWND owner) {
  constexpr int attempts = 5;
  constexpr DWORD between_ms = 25;
  for (int i = 0; i < attempts; ++i) {
    if (i > 0)
      Sleep(between_ms);
    if (OpenClipboard(owner) != 0)
      return true;
  }
  return false;
}

// A block of the system's that holds the text and its zero; nullptr when there is no memory.
HGLOBAL block_of(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
  void* memory = block == nullptr ? nullptr : GlobalLock(block);
  if (memory == nullptr) {
    GlobalFree(block); // accepts a null block
    return nullptr;
  }
  std::memcpy(memory, text.c_str(), bytes);
  GlobalUnlock(block);
  return block;
}

} // namespace

bool Clipboard::set_text(const std::wstring& text) {
  loop_.check_thread();
  const HGLOBAL block = block_of(text); // before the clipboard is emptied: without memory its content stays
  if (block == nullptr)
    return false;
  bool set = false;
  if (open_clipboard(owner_)) {
    set = EmptyClipboard() != 0 && SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    CloseClipboard();
  }
  if (!set)
    GlobalFree(block); // otherwise the system owns it
  return set;
}

} // namespace lumotune::platform::win32
