// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/reply_head.h"

#include "platform/media/dictionary.h"
#include "platform/media/reach.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace lumotune::media {
namespace {

// "host:port", with the scheme's own port where the address names none.
std::string endpoint_of(const std::string& address, bool secure) {
  std::string host = host_of(address);
  const std::size_t after_brackets = host.rfind(']') == std::string::npos ? 0 : host.rfind(']');
  if (host.find(':', after_brackets) == std::string::npos)
    host += secure ? ":443" : ":80";
  return host;
}

// What follows the host, with everything escaped that could end the request's line.
std::string target_of(const std::string& address) {
  constexpr const char* digits = "0123456789ABCDEF";
  const std::size_t host = address.find("://") + 3;
  const std::size_t start = address.find_first_of("/?#", host);
  std::string target = "/";
  if (start == std::string::npos || address[start] == '#')
    return target;
  for (const char c : address.substr(start + (address[start] == '/' ? 1 : 0))) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '#')
      break;
    if (byte > 0x20 && byte < 0x7f)
      target += c;
    else
      target += {'%', digits[byte >> 4U], digits[byte & 15U]};
  }
  return target;
}

Io connect(const std::string& address, bool secure, const ReplyOptions& options, const AVIOInterruptCB& interrupt) {
  Dictionary settings;
  const std::string time = std::to_string(static_cast<long long>(options.timeout_ms) * 1000);
  settings.set("timeout", time);
  settings.set("rw_timeout", time);
  settings.set("protocol_whitelist", "tls,tcp");
  settings.set("tls_verify", options.verified ? "1" : "0");
  if (!options.ca_file.empty())
    settings.set("ca_file", options.ca_file);
  AVIOContext* made = nullptr;
  const std::string endpoint = (secure ? "tls://" : "tcp://") + endpoint_of(address, secure);
  (void)avio_open2(&made, endpoint.c_str(), AVIO_FLAG_READ_WRITE, &interrupt, settings.out());
  return Io(made); // empty after a failure
}

} // namespace

// Reads and writes past the context's buffer, which serves one direction only.
std::string reply_head(const std::string& address, const ReplyOptions& options, const AVIOInterruptCB& interrupt) {
  constexpr std::size_t most = 16 * 1024;
  const bool secure = address.starts_with("https:");
  const Io connection = connect(address, secure, options, interrupt);
  if (connection == nullptr)
    return {};
  std::string request = "GET " + target_of(address) + " HTTP/1.1\r\nHost: " + host_of(address) +
                        "\r\nUser-Agent: " + options.user_agent + "\r\nConnection: close\r\n\r\n";
  if (connection->write_packet(connection->opaque, reinterpret_cast<std::uint8_t*>(request.data()),
                               static_cast<int>(request.size())) < 0)
    return {};
  std::string head;
  std::array<std::uint8_t, 1024> buffer;
  std::size_t end = std::string::npos;
  while (end == std::string::npos && head.size() < most) {
    const int got = connection->read_packet(connection->opaque, buffer.data(), static_cast<int>(buffer.size()));
    if (got <= 0)
      return {};
    head.append(reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(got));
    end = head.find("\r\n\r\n");
  }
  return end == std::string::npos ? std::string() : head.substr(0, end);
}

} // namespace lumotune::media
