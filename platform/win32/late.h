// SPDX-License-Identifier: LGPL-2.1-or-later
// Functions of system libraries that are loaded when they are first asked for, so that the program's start does not
// wait for them.
#pragma once

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

// nullptr when the system has no such library or function. The library stays loaded. Only the system's own folder
// counts: a library of that name beside the program could have been put there by anybody.
template <typename Function>
[[nodiscard]] Function* late_function(const wchar_t* library, const char* name) {
  const HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  // A plain function pointer behind the system's untyped one.
  return loaded == nullptr ? nullptr
                           : reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

} // namespace lumotune::platform::win32
