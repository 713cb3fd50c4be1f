// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/threads/thread_name.h"

#ifdef _WIN32
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#else
#include <pthread.h>
#endif

namespace lumotune::platform {

#ifdef _WIN32
// The first versions that have the function export it from this library alone, and older ones not at all.
void set_name_of_this_thread(const char* name) noexcept {
  using SetDescription = HRESULT WINAPI(HANDLE thread, PCWSTR description);
  const HMODULE library = GetModuleHandleW(L"kernelbase.dll");
  const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, "SetThreadDescription");
  if (found == nullptr)
    return;
  std::array<wchar_t, 16> text{};
  std::copy_n(name, std::min(std::strlen(name), text.size() - 1), text.begin());
  (void)reinterpret_cast<SetDescription*>(reinterpret_cast<void*>(found))(GetCurrentThread(), text.data());
}
#else
void set_name_of_this_thread(const char* name) noexcept {
  (void)pthread_setname_np(pthread_self(), name);
}
#endif

} // namespace lumotune::platform
