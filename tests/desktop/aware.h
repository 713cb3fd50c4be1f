// SPDX-License-Identifier: LGPL-2.1-or-later
// Places on a fine screen are pixels for the program under test; for a program that does not say that it knows of
// resolutions the system scales them.
#pragma once

#include <windows.h>

#include <cstdint>

namespace probe {

// Before the first window or place is asked for. Older systems do not have it.
inline void become_aware_of_resolutions() {
  using SetAwareness = BOOL WINAPI(HANDLE);
  const auto per_monitor = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-4)); // the second version
  const auto set = reinterpret_cast<SetAwareness*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetProcessDpiAwarenessContext")));
  if (set != nullptr)
    (void)set(per_monitor);
}

} // namespace probe
