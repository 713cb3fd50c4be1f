// SPDX-License-Identifier: LGPL-2.1-or-later
// Connections of this machine with itself, on Windows and elsewhere.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace demo_radio {

#ifdef _WIN32
using Handle = std::uintptr_t; // SOCKET
#else
using Handle = int;
#endif

// A connection, or what waits for some; closed at its end.
class Socket {
public:
  explicit Socket(Handle handle) : handle_(handle) {}
  Socket(Socket&& other) noexcept;
  Socket& operator=(Socket&&) = delete;
  ~Socket();

  // Everything, or false when the other side takes nothing for ten seconds or is gone.
  [[nodiscard]] bool send(std::string_view bytes) const;
  // What has come, up to `limit` bytes; empty at the end or when that time is over.
  [[nodiscard]] std::string receive(std::size_t limit, std::chrono::milliseconds longest) const;
  // Waits for the next connection.
  [[nodiscard]] Socket accept() const;
  [[nodiscard]] bool is_open() const;
  [[nodiscard]] std::uint16_t port() const;

private:
  Handle handle_;
};

// Waits for connections to 127.0.0.1 on that port, on another free one when it is taken. Throws std::runtime_error when
// there is none.
[[nodiscard]] Socket listen_here(std::uint16_t port);

} // namespace demo_radio
