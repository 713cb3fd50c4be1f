// SPDX-License-Identifier: LGPL-2.1-or-later
// The head of a request (HTTP/1.1, RFC 9112) as far as the small radio looks at it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace demo_radio {

constexpr std::size_t longest_head = 8192; // bytes, the empty line at its end included

struct Request {
  std::string target; // begins with a slash or a backslash
  bool head_only = false;
  bool wants_titles = false; // "Icy-MetaData: 1"
};

// Of a head up to and with its empty line; nothing when it is none, or of another method than GET and HEAD.
[[nodiscard]] std::optional<Request> parse_request(std::string_view head);

} // namespace demo_radio
