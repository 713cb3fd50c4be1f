// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/address.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace lumotune::media {
namespace {

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n\"");
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n\"") - first + 1);
}

// The scheme in small letters; empty for a path. One letter before the colon is a drive.
std::string scheme_of(std::string_view address) {
  const std::size_t colon = address.find(':');
  if (colon == std::string_view::npos || colon < 2)
    return {};
  std::string scheme;
  for (const char c : address.substr(0, colon)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 127 || (std::isalnum(byte) == 0 && c != '+' && c != '-' && c != '.'))
      return {};
    scheme += static_cast<char>(std::tolower(byte));
  }
  return scheme;
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  const char small = static_cast<char>(c | 0x20);
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::string unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape =
        text[i] == '%' && i + 2 < text.size() && hex_digit(text[i + 1]) >= 0 && hex_digit(text[i + 2]) >= 0;
    if (escape && (hex_digit(text[i + 1]) != 0 || hex_digit(text[i + 2]) != 0)) {
      plain += static_cast<char>(hex_digit(text[i + 1]) * 16 + hex_digit(text[i + 2]));
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// "file:///C:/x" is C:/x, "file:///home/x" is /home/x, "file://host/share/x" is //host/share/x.
std::string path_of_file_address(std::string_view address) {
  std::string path = unescaped(address.substr(5));
  if (path.starts_with("//localhost/"))
    path.erase(0, 11);
  else if (path.starts_with("///"))
    path.erase(0, 2);
  const bool drive = path.size() > 2 && path[0] == '/' && path[2] == ':';
  return drive ? path.substr(1) : path;
}

bool is_network(const std::string& scheme) {
  constexpr std::array<std::string_view, 8> known = {"http", "https", "mms", "mmsh", "mmst", "rtsp", "rtp", "udp"};
  return std::find(known.begin(), known.end(), scheme) != known.end();
}

} // namespace

AddressKind address_kind(std::string_view address) {
  address = trimmed(address);
  if (address.empty())
    return AddressKind::none;
  const std::string scheme = scheme_of(address);
  if (scheme.empty() || scheme == "file")
    return AddressKind::local;
  return is_network(scheme) ? AddressKind::network : AddressKind::unsupported;
}

std::vector<std::string> openable_addresses(std::string_view address) {
  address = trimmed(address);
  const std::string scheme = scheme_of(address);
  const std::string_view rest = address.substr(scheme.size());
  switch (address_kind(address)) {
  case AddressKind::local:
    return {"file:" + (scheme == "file" ? path_of_file_address(address) : std::string(address))};
  case AddressKind::network:
    if (scheme == "mms")
      return {"mmsh" + std::string(rest), "mmst" + std::string(rest)};
    return {scheme + std::string(rest)};
  case AddressKind::none:
  case AddressKind::unsupported:
    break;
  }
  return {};
}

std::string resolve_address(std::string_view base, std::string_view entry) {
  entry = trimmed(entry);
  const bool absolute_path = !entry.empty() && (entry[0] == '/' || entry[0] == '\\');
  const bool drive = entry.size() > 1 && entry[1] == ':';
  if (!scheme_of(entry).empty() || entry.empty() || drive)
    return std::string(entry);
  if (address_kind(base) == AddressKind::local)
    return absolute_path ? std::string(entry) : std::string(base.substr(0, base.find_last_of("/\\") + 1)).append(entry);
  const std::string_view folder = base.substr(0, base.find('?'));
  const std::size_t host = base.find("://");
  const std::size_t path = host == std::string_view::npos ? host : folder.find('/', host + 3);
  const std::string_view server = folder.substr(0, path);
  if (entry.starts_with("//"))
    return std::string(base.substr(0, base.find(':') + 1)).append(entry);
  if (absolute_path)
    return std::string(server).append(entry);
  if (path == std::string_view::npos)
    return std::string(server).append("/").append(entry);
  return std::string(folder.substr(0, folder.find_last_of('/') + 1)).append(entry);
}

} // namespace lumotune::media
