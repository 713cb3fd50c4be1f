// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/proxy_rules.h"

#include <algorithm>

namespace lumotune::platform {
namespace {

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  });
  return result;
}

struct Place {
  std::string scheme; // empty where none is given
  std::string host;   // without the brackets of a number of version 6
  std::string port;   // empty where none is given
};

// "host:8000", "[::1]:8000", "::1".
void split_port(std::string_view text, Place& place) {
  const std::size_t bracket = text.empty() || text.front() != '[' ? std::string_view::npos : text.find(']');
  if (bracket != std::string_view::npos) {
    place.host = text.substr(1, bracket - 1);
    if (text.substr(bracket + 1).starts_with(':'))
      place.port = text.substr(bracket + 2);
    return;
  }
  const std::size_t colon = text.find(':');
  const bool with_port = colon != std::string_view::npos && text.find(':', colon + 1) == std::string_view::npos;
  place.host = text.substr(0, with_port ? colon : text.size());
  if (with_port)
    place.port = text.substr(colon + 1);
}

// Of an address or of an entry: both may bear a scheme and a path.
Place place_of(std::string_view text) {
  Place place;
  const std::string whole = lower(text);
  std::string_view rest = whole;
  if (const std::size_t end = rest.find("://"); end != std::string_view::npos) {
    place.scheme = rest.substr(0, end);
    rest.remove_prefix(end + 3);
  }
  rest = rest.substr(0, rest.find_first_of("/?#"));
  if (const std::size_t user = rest.rfind('@'); user != std::string_view::npos)
    rest.remove_prefix(user + 1);
  split_port(rest, place);
  if (place.host.ends_with('.'))
    place.host.pop_back(); // the dot that ends a fully qualified name
  return place;
}

// Backtracking: on a mismatch the last star matches one letter more.
bool matches(std::string_view pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t star = std::string_view::npos;
  std::size_t after_star = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      after_star = t;
    } else if (p < pattern.size() && pattern[p] == text[t]) {
      ++p;
      ++t;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      t = ++after_star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool entry_means(std::string_view entry, const Place& wanted) {
  if (lower(entry) == "<local>")
    return wanted.host.find_first_of(".:") == std::string::npos;
  const Place meant = place_of(entry);
  return (meant.scheme.empty() || meant.scheme == wanted.scheme) && (meant.port.empty() || meant.port == wanted.port) &&
         matches(meant.host, wanted.host);
}

bool is_own_machine(const Place& place) {
  const bool number = place.host.find_first_not_of("0123456789.") == std::string::npos;
  return place.host == "localhost" || place.host == "::1" || (number && place.host.starts_with("127."));
}

std::string choose(std::string_view list, bool secure) {
  const std::string_view key = secure ? "https=" : "http=";
  const std::size_t named = list.find(key);
  if (named == std::string_view::npos && list.find('=') != std::string_view::npos)
    return {};
  const std::size_t start = named == std::string_view::npos ? 0 : named + key.size();
  const std::string host(list.substr(start, list.find_first_of("; ", start) - start));
  return host.empty() || host.find("://") != std::string::npos ? host : "http://" + host;
}

Place wanted_place(std::string_view address) {
  Place place = place_of(address);
  if (place.scheme != "https")
    place.scheme = "http"; // the media server's protocol, too, is spoken over this one
  if (place.port.empty())
    place.port = place.scheme == "https" ? "443" : "80";
  return place;
}

} // namespace

bool bypasses_proxy(std::string_view list, std::string_view address) {
  constexpr std::string_view separators = "; \t\r\n";
  const Place wanted = wanted_place(address);
  if (wanted.host.empty() || address.find("://") == std::string_view::npos)
    return false;
  for (std::size_t at = list.find_first_not_of(separators); at != std::string_view::npos;) {
    const std::size_t end = list.find_first_of(separators, at);
    if (entry_means(list.substr(at, end - at), wanted))
      return true;
    at = list.find_first_not_of(separators, end);
  }
  return false;
}

std::string proxy_for(const ProxySettings& settings, std::string_view address) {
  const Place wanted = wanted_place(address);
  if (is_own_machine(wanted) || bypasses_proxy(settings.bypass, address))
    return {};
  return choose(settings.proxies, wanted.scheme == "https");
}

} // namespace lumotune::platform
