// SPDX-License-Identifier: LGPL-2.1-or-later
// A folder of its own for each test on the real backend.
#pragma once

#include "platform/win32/files.h"

#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

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
    std::error_code left_behind;
    std::filesystem::remove_all(path_, left_behind);
  }
  [[nodiscard]] const std::wstring& path() const { return path_; }

private:
  std::wstring path_;
};

} // namespace lumotune::contract
