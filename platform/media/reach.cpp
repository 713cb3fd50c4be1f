// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/reach.h"

#include "platform/media/address.h"

#include <algorithm>

namespace lumotune::media {
namespace {

bool is_http(std::string_view address) {
  return address.starts_with("http://") || address.starts_with("https://");
}

bool is_media(std::string_view address) {
  return address.starts_with("mmsh://") || address.starts_with("mmst://");
}

bool take(std::string_view& text, std::string_view start) {
  if (!text.starts_with(start))
    return false;
  text.remove_prefix(start.size());
  return true;
}

std::string with_forward_slashes(std::string_view path) {
  std::string result(path);
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

// "\\.\pipe\x", "\\?\C:\x": not plain audio files.
bool is_device(const std::string& path) {
  return path.starts_with("//./") || path.starts_with("//?/");
}

bool leaves_folder(const std::string& path) {
  return path == ".." || path.starts_with("../") || path.ends_with("/..") || path.find("/../") != std::string::npos;
}

// Offsets in an address: start of the credentials, start and end of the host.
struct Authority {
  std::size_t begin = 0;
  std::size_t host = 0;
  std::size_t end = 0;
};

Authority authority_of(std::string_view address) {
  Authority at;
  const std::size_t slashes = address.find("://");
  if (slashes == std::string_view::npos)
    return at;
  at.begin = at.host = slashes + 3;
  at.end = std::min(address.find_first_of("/?#", at.begin), address.size());
  const std::size_t sign = address.substr(at.begin, at.end - at.begin).rfind('@');
  if (sign != std::string_view::npos)
    at.host = at.begin + sign + 1;
  return at;
}

} // namespace

Reach reach_of(std::string_view address, bool from_network) {
  if (has_control(address))
    return Reach::nothing;
  if (is_http(address))
    return Reach::http;
  if (is_media(address))
    return Reach::media;
  if (from_network || !take(address, "file:") || address.empty() || is_device(with_forward_slashes(address)))
    return Reach::nothing;
  return Reach::file;
}

bool may_name(std::string_view top, std::string_view named) {
  if (has_control(named))
    return false;
  named = without_crypto(named);
  if (!take(top, "file:"))
    return is_http(top) && is_http(named);
  if (!take(named, "file:"))
    return false;
  const std::string list = with_forward_slashes(top);
  const std::string path = with_forward_slashes(named);
  const std::string folder = list.substr(0, list.rfind('/') + 1);
  return !folder.empty() && path.starts_with(folder) && !leaves_folder(path.substr(folder.size()));
}

std::string_view without_crypto(std::string_view address) {
  (void)(take(address, "crypto+") || take(address, "crypto:"));
  return address;
}

const char* protocols_of(std::string_view address) {
  if (address.starts_with("mmsh:"))
    return "mmsh,http,tcp"; // no https: certificate checks cannot be requested for it
  if (address.starts_with("mmst:"))
    return "mmst,tcp";
  return is_http(without_crypto(address)) ? "http,https,httpproxy,tcp,tls,crypto" : "file,crypto";
}

std::string host_of(std::string_view address) {
  const Authority at = authority_of(address);
  return std::string(address.substr(at.host, at.end - at.host));
}

std::string without_credentials(std::string_view address) {
  const Authority at = authority_of(address);
  return std::string(address.substr(0, at.begin)).append(address.substr(at.host));
}

} // namespace lumotune::media
