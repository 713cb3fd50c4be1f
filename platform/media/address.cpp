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

// The scheme in lower case; empty for a path. A single letter before the colon is a drive.
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

char to_lower(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  const char letter = static_cast<char>(c | 0x20);
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
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

bool is_separator(char c) {
  return c == '/' || c == '\\';
}

// The path of a local address, as passed to the system.
std::string local_path(std::string_view address) {
  address = trimmed(address);
  return scheme_of(address) == "file" ? path_of_file_address(address) : std::string(address);
}

// "con", "Con.mp3", "nul .txt", "COM1": Windows opens the device, whatever the folder.
bool is_device_name(std::string_view name) {
  name = name.substr(0, name.find_first_of(".:"));
  name = name.substr(0, name.find_last_not_of(' ') + 1);
  std::string folded;
  for (const char c : name)
    folded += to_lower(c);
  constexpr std::array<std::string_view, 7> devices = {"con", "prn", "aux", "nul", "conin$", "conout$", "clock$"};
  if (std::find(devices.begin(), devices.end(), folded) != devices.end())
    return true;
  if (!folded.starts_with("com") && !folded.starts_with("lpt"))
    return false;
  // Superscript digits count as well.
  constexpr std::array<std::string_view, 13> numbers = {"0", "1", "2", "3",        "4",        "5",       "6",
                                                        "7", "8", "9", "\xc2\xb9", "\xc2\xb2", "\xc2\xb3"};
  return std::find(numbers.begin(), numbers.end(), folded.substr(3)) != numbers.end();
}

bool has_device_name(std::string_view path) {
  while (!path.empty()) {
    const std::size_t end = path.find_first_of("/\\");
    if (is_device_name(path.substr(0, end)))
      return true;
    path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
  }
  return false;
}

// A file on a drive of this machine: "C:\\x", or "\\x" on the current drive. Two leading separators denote a share or a
// device, a question mark may lead into the object namespace ("\\??\\"), a second colon to an alternate data stream.
bool is_plain_path(std::string_view path) {
  if (path.empty() || has_control(path) || path.find_first_of("\"*<>?|") != std::string_view::npos)
    return false;
  const bool drive = path.size() > 2 && std::isalpha(static_cast<unsigned char>(path[0])) != 0 &&
                     static_cast<unsigned char>(path[0]) < 128 && path[1] == ':';
  if (drive)
    path.remove_prefix(2);
  if (!is_separator(path[0]) || (!drive && path.size() > 1 && is_separator(path[1])))
    return false;
  return path.find(':') == std::string_view::npos && !has_device_name(path);
}

// "//host/share/" in lower case; empty for a path that is not on a share.
std::string share_of(std::string_view path) {
  std::string folded;
  for (const char c : path)
    folded += is_separator(c) ? '/' : to_lower(c);
  if (!folded.starts_with("//") || folded.find_first_of("?*:\"<>|") != std::string::npos || has_control(folded))
    return {};
  const std::size_t host_end = folded.find('/', 2);
  const std::size_t share_end = host_end == std::string::npos ? host_end : folded.find('/', host_end + 1);
  if (share_end == std::string::npos || host_end == 2 || share_end == host_end + 1 || folded[2] == '.')
    return {};
  return folded.substr(0, share_end + 1);
}

// Not rtsp, rtp or udp: these open ports on this machine that a server's answer may choose.
bool is_network(const std::string& scheme) {
  constexpr std::array<std::string_view, 5> known = {"http", "https", "mms", "mmsh", "mmst"};
  return std::find(known.begin(), known.end(), scheme) != known.end();
}

} // namespace

bool has_control(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
  });
}

AddressKind address_kind(std::string_view address) {
  address = trimmed(address);
  if (address.empty())
    return AddressKind::none;
  if (address.size() > max_address_bytes || has_control(address))
    return AddressKind::unsupported;
  const std::string scheme = scheme_of(address);
  if (scheme.empty() || scheme == "file")
    return AddressKind::local;
  return is_network(scheme) ? AddressKind::network : AddressKind::unsupported;
}

bool may_open(std::string_view address, platform::AddressOrigin origin) {
  const AddressKind kind = address_kind(address);
  if (kind != AddressKind::local && kind != AddressKind::network)
    return false;
  if (kind == AddressKind::local && has_control(local_path(address))) // "%0A"
    return false;
  if (kind == AddressKind::network || origin == platform::AddressOrigin::listener)
    return true;
  return origin != platform::AddressOrigin::station && is_plain_path(local_path(address));
}

platform::AddressOrigin origin_of_entry(std::string_view list, platform::AddressOrigin list_origin,
                                        std::string_view entry) {
  if (address_kind(list) != AddressKind::local || list_origin == platform::AddressOrigin::station ||
      list_origin == platform::AddressOrigin::dropped)
    return platform::AddressOrigin::station;
  if (list_origin == platform::AddressOrigin::message || address_kind(entry) != AddressKind::local)
    return platform::AddressOrigin::message;
  const std::string share = share_of(local_path(list));
  return !share.empty() && share == share_of(local_path(entry)) ? platform::AddressOrigin::listener
                                                                : platform::AddressOrigin::message;
}

std::vector<std::string> openable_addresses(std::string_view address) {
  address = trimmed(address);
  const std::string scheme = scheme_of(address);
  const std::string_view rest = address.substr(scheme.size());
  switch (address_kind(address)) {
  case AddressKind::local:
    return {"file:" + local_path(address)};
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
