// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/threads/thread_name.h"

#ifdef _WIN32
#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#else
#include <pthread.h>
#endif

namespace lumotune::platform {

#ifdef _WIN32
namespace {

struct NamedThread {
  std::atomic<DWORD> id = 0;
  std::atomic<const char*> name = nullptr;
};
std::array<NamedThread, 64> named;       // NOLINT: of the process
std::atomic<std::size_t> next_named = 0; // NOLINT

// A number that is used again by a later thread keeps its place; beyond the last place the oldest names go.
void keep_name(DWORD id, const char* name) noexcept {
  for (NamedThread& each : named) {
    DWORD nobody = 0;
    if (each.id == id || each.id.compare_exchange_strong(nobody, id)) {
      each.name = name;
      return;
    }
  }
  NamedThread& oldest = named[next_named++ % named.size()];
  oldest.name = nullptr;
  oldest.id = id;
  oldest.name = name;
}

} // namespace

const char* name_of_thread(std::uint32_t id) noexcept {
  for (const NamedThread& each : named) {
    if (each.id == id)
      return each.name;
  }
  return nullptr;
}

// The first versions that have the function export it from this library alone, and older ones not at all.
void set_name_of_this_thread(const char* name) noexcept {
  keep_name(GetCurrentThreadId(), name);
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
