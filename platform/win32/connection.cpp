// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/connection.h"

#include "platform/win32/late.h"

#include <wininet.h>

#include <array>

namespace lumotune::platform::win32 {

// A machine that cannot be asked counts as connected: what is then fetched tells by itself. (A test that wants to be
// off the internet puts a library of its own into the system folder of its Wine prefix and has Wine take that one.)
ConnectionState Connection::state() {
  thread_.check();
  static const auto ask =
      late_function<decltype(InternetGetConnectedStateExW)>(L"wininet.dll", "InternetGetConnectedStateExW");
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
