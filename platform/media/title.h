// SPDX-License-Identifier: LGPL-2.1-or-later
// Titles that a stream carries. They are bytes of an unknown code page, from a server that is not to be trusted. Pure.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

// The title of an ICY metadata block: "StreamTitle='...';" followed by nothing or by another key. The title itself may
// hold "';". Nothing when the block names no title.
[[nodiscard]] std::optional<std::string> icy_stream_title(std::string_view block);

// Readable text: strict UTF-8, else Windows-1250; then character references ("&#345;", "&#x159;", "&amp;") are
// resolved, control characters become blanks, runs of blanks one, outer ones none. At most 500 characters.
[[nodiscard]] std::wstring readable_text(std::string_view bytes);

} // namespace lumotune::media
