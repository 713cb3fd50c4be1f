// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/radio/connection.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#ifdef _WIN32
#include <winsock2.h>
// behind it
#include <windows.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace demo_radio {
namespace {

constexpr int longest_send_ms = 10000;
constexpr int waiting = 32; // connections that wait to be accepted

#ifdef _WIN32
using Length = int;
constexpr Handle none = INVALID_SOCKET;
constexpr int send_flags = 0;
void start_network() {
  WSADATA data{};
  if (WSAStartup(MAKEWORD(2, 2), &data) != 0)
    throw std::runtime_error("no network");
}
void close_handle(Handle handle) {
  closesocket(handle);
}
int wait_for(Handle handle, short events, int milliseconds) {
  WSAPOLLFD wanted{handle, events, 0};
  return WSAPoll(&wanted, 1, milliseconds);
}
// Nobody else may listen there as well.
void claim(Handle handle) {
  const BOOL yes = TRUE;
  setsockopt(handle, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&yes), sizeof yes);
}
void do_not_wait(Handle handle) {
  u_long yes = 1;
  ioctlsocket(handle, static_cast<long>(FIONBIO), &yes);
}
#else
using Length = socklen_t;
constexpr Handle none = -1;
constexpr int send_flags = MSG_NOSIGNAL | MSG_DONTWAIT;
void start_network() {}
void close_handle(Handle handle) {
  ::close(handle);
}
int wait_for(Handle handle, short events, int milliseconds) {
  pollfd wanted{handle, events, 0};
  return ::poll(&wanted, 1, milliseconds);
}
void claim(Handle handle) {
  const int yes = 1;
  setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}
void do_not_wait(Handle /*handle*/) {}
#endif

bool bind_here(Handle handle, std::uint16_t port) {
  claim(handle);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return ::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
         ::listen(handle, waiting) == 0;
}

} // namespace

Socket::Socket(Socket&& other) noexcept : handle_(std::exchange(other.handle_, none)) {}

Socket::~Socket() {
  if (handle_ != none)
    close_handle(handle_);
}

bool Socket::is_open() const {
  return handle_ != none;
}

bool Socket::send(std::string_view bytes) const {
  while (!bytes.empty()) {
    if (wait_for(handle_, POLLOUT, longest_send_ms) <= 0)
      return false;
    constexpr std::size_t most = 65536;
    const auto count = ::send(handle_, bytes.data(), static_cast<Length>(std::min(bytes.size(), most)), send_flags);
    if (count <= 0)
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::string Socket::receive(std::size_t limit, std::chrono::milliseconds longest) const {
  if (limit == 0 || wait_for(handle_, POLLIN, static_cast<int>(longest.count())) <= 0)
    return {};
  std::string bytes(limit, '\0');
  const auto count = ::recv(handle_, bytes.data(), static_cast<Length>(limit), 0);
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

Socket Socket::accept() const {
  Socket made(::accept(handle_, nullptr, nullptr));
  if (made.is_open())
    do_not_wait(made.handle_);
  return made;
}

std::uint16_t Socket::port() const {
  sockaddr_in address{};
  Length size = sizeof address;
  if (getsockname(handle_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
    return 0;
  return ntohs(address.sin_port);
}

Socket listen_here(std::uint16_t port) {
  start_network();
  for (const std::uint16_t each : {port, std::uint16_t{0}}) {
    const Handle handle = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    Socket made(handle);
    if (made.is_open() && bind_here(handle, each))
      return made;
  }
  throw std::runtime_error("no free port");
}

} // namespace demo_radio
