// SPDX-License-Identifier: LGPL-2.1-or-later
// Functions of system libraries loaded on first use, which keeps the start fast.
#pragma once

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

// nullptr when the system has no such library or function. The library stays loaded. Only the system folder is
// searched: a library of that name beside the program could have been planted.
template <typename Function>
[[nodiscard]] Function* late_function(const wchar_t* library, const char* name) {
  const HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  // A plain function pointer behind the system's untyped one.
  return loaded == nullptr ? nullptr
                           : reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

} // namespace lumotune::platform::win32
