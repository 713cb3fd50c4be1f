// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/connection.h"

#include <wininet.h>

#include <array>

namespace lumotune::platform::win32 {
namespace {

using Ask = decltype(&InternetGetConnectedStateExW);

// Loaded when it is asked for, because the program's start need not wait for it; kept, because unloading it is known to
// leave threads behind. Only the system's own folder counts: a library of that name beside the program could have been
// put there by anybody. (A test that wants to be off the internet puts a library of its own into that folder of its
// Wine prefix, and tells Wine by WINEDLLOVERRIDES to take it.)
Ask load() {
  const HMODULE library = LoadLibraryExW(L"wininet.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (library == nullptr)
    return nullptr;
  // A plain function pointer behind the system's untyped one.
  return reinterpret_cast<Ask>(reinterpret_cast<void*>(GetProcAddress(library, "InternetGetConnectedStateExW")));
}

} // namespace

// A machine that cannot be asked counts as connected: what is then fetched tells by itself.
ConnectionState Win32Connection::state() {
  static const Ask ask = load();
  if (ask == nullptr)
    return {true, 0, {}};
  std::array<wchar_t, 254> name{};
  DWORD flags = 0;
  ConnectionState state;
  state.connected = ask(&flags, name.data(), static_cast<DWORD>(name.size()), 0) == TRUE;
  name.back() = 0;
  state.flags = flags;
  state.name = name.data();
  return state;
}

} // namespace lumotune::platform::win32
