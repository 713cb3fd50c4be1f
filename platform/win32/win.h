// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's headers and the closing aliases of its handles; for the .cpp files of this room alone.
#pragma once

#include <windows.h>

#include <memory>

namespace lumotune::platform::win32 {

struct CloseKernelHandle {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE)
      CloseHandle(handle);
  }
};
using KernelHandle = std::unique_ptr<void, CloseKernelHandle>;

struct CloseSearch {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE)
      FindClose(handle);
  }
};
using SearchHandle = std::unique_ptr<void, CloseSearch>;

struct DeleteGdiObject {
  using pointer = HGDIOBJ;
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<void, DeleteGdiObject>;

struct DeleteMemoryDc {
  using pointer = HDC;
  void operator()(HDC dc) const { DeleteDC(dc); }
};
using MemoryDc = std::unique_ptr<void, DeleteMemoryDc>;

// For the program's own entry, where nobody can be told yet; all other entries use CaughtErrors.
template <typename Work>
void guarded(const Work& work) noexcept {
  try {
    work();
  } catch (...) {
    OutputDebugStringW(L"Lumotune: a handler failed");
  }
}

} // namespace lumotune::platform::win32
