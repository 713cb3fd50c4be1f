// SPDX-License-Identifier: LGPL-2.1-or-later
// Whether the machine is on the internet.
#pragma once

#include <cstdint>
#include <string>

namespace lumotune::platform {

struct ConnectionState {
  bool connected = false;
  std::uint32_t flags = 0; // as the system reports them
  std::wstring name;       // of the connection, at most 253 characters
};

// User-interface thread.
class Connection {
public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  virtual ~Connection() = default;

  [[nodiscard]] virtual ConnectionState state() = 0;
};

} // namespace lumotune::platform
