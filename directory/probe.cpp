// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/probe.h"

#include "base/code_page_fold.h"
#include "base/line_walk.h"
#include "base/site.h"
#include "base/text.h"
#include "stations/station_limits.h"

#include <optional>

namespace lumotune::directory {
namespace {

// A length in bytes, blanks around it allowed. Anything else is rejected: the update would wait for a misread length
// for ever.
std::optional<std::uint64_t> length_value(std::string_view text) {
  text = base::trimmed(text);
  if (text.empty())
    return std::nullopt;
  std::uint64_t number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9')
      return std::nullopt;
    number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    if (number > stations::max_station_bytes)
      return std::nullopt;
  }
  return number == 0 ? std::nullopt : std::optional(number);
}

// Matches the whole marker at the start of the line, whatever the length of the host name.
bool is_error_marker(std::string_view line, const std::wstring& host, const platform::AnsiCodec& codec,
                     const base::CodePageFold& fold) {
  return !host.empty() && fold.starts_with(line, codec.encode(host + L":error"));
}

} // namespace

std::wstring host_of(std::wstring_view address) {
  const std::size_t scheme = address.find(L"://");
  if (scheme != std::wstring_view::npos)
    address.remove_prefix(scheme + 3);
  address = address.substr(0, address.find_first_of(L"/\\?#"));
  if (base::starts_with_ignoring_case(address, L"www."))
    address.remove_prefix(4);
  const std::size_t bracket = address.starts_with(L'[') ? address.find(L']') : std::wstring_view::npos;
  if (bracket != std::wstring_view::npos)
    return std::wstring(address.substr(0, bracket + 1)); // an IPv6 literal: its colons do not separate a port
  return std::wstring(address.substr(0, address.find(L':')));
}

Probe parse_probe(std::string_view bytes, const std::wstring& server_address, const platform::AnsiCodec& codec,
                  const std::function<bool()>& after_line) {
  constexpr std::string_view size_marker = "size:";
  const base::CodePageFold fold(codec);
  const std::wstring host = host_of(server_address);
  Probe probe;
  base::LineWalk walk(bytes);
  while (walk.next()) {
    const std::string_view line = walk.line();
    if (is_error_marker(line, host, codec, fold) || is_error_marker(line, base::site_host, codec, fold))
      return {Probe::Kind::refused, 0};
    if (base::starts_with_marker(line, size_marker)) {
      const auto length = length_value(line.substr(size_marker.size()));
      probe = length.has_value() ? Probe{Probe::Kind::size, *length} : Probe{};
    }
    if (!after_line())
      return {};
  }
  return probe;
}

} // namespace lumotune::directory
