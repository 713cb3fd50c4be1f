// SPDX-License-Identifier: LGPL-2.1-or-later
// How long a server that refuses a request asks to be left alone. Pure functions.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace lumotune::media {

// The value of a header field in the head of a reply (status line and fields), without blanks around it; empty when
// there is none. The name's letter case is ignored.
[[nodiscard]] std::string_view header_field(std::string_view head, std::string_view name);

// A date of HTTP in one of its three forms; nothing when it is malformed.
[[nodiscard]] std::optional<std::chrono::sys_seconds> http_date(std::string_view text);

// The time that the field "Retry-After" asks for: whole seconds, or until a date, counted from the reply's own "Date"
// or else from `now`. 0 for a date that has passed; a day at most. Nothing when there is no such field or it is
// malformed.
[[nodiscard]] std::optional<std::chrono::seconds> retry_after(std::string_view head, std::chrono::sys_seconds now);

} // namespace lumotune::media
