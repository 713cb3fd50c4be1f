// SPDX-License-Identifier: LGPL-2.1-or-later
// How a program of the client sends a text to another one's window.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace companion {

// In the system's code page.
[[nodiscard]] inline std::string ansi(const std::wstring& text) {
  std::string bytes(text.size() * 2, '\0');
  const int length = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

// The receiver's answer; nothing, and the last error set, when there is none within that time.
[[nodiscard]] inline std::optional<LRESULT> send_text(HWND target, HWND from, std::string bytes, UINT longest_ms) {
  COPYDATASTRUCT record{1, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  SetLastError(0);
  if (SendMessageTimeoutA(target, WM_COPYDATA, reinterpret_cast<WPARAM>(from), reinterpret_cast<LPARAM>(&record),
                          SMTO_ABORTIFHUNG, longest_ms, &answer) == 0)
    return std::nullopt;
  return static_cast<LRESULT>(answer);
}

} // namespace companion
