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

  void pass(std::uint32_t ms) {
    const DWORD start = GetTickCount();
    do {
      if (!loop.wait_a_little())
        return;
    } while (GetTickCount() - start <= ms);
  }
  long deliver(const std::string& bytes, std::uint32_t kind) {
    std::string text = bytes;
    COPYDATASTRUCT record{};
    record.dwData = kind;
    record.cbData = static_cast<DWORD>(text.size());
    record.lpData = text.empty() ? nullptr : text.data();
    return static_cast<long>(SendMessageA(window.handle(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record)));
  }
};

} // namespace lumotune::contract
