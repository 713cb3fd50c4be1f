// SPDX-License-Identifier: LGPL-2.1-or-later
// Stream titles: untrusted bytes in an unknown code page. Pure functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

// The title in an ICY metadata block: "StreamTitle='...';" followed by nothing or another key; the title itself may
// contain "';". Nothing when the block has other keys only. Empty when the block cannot be read, because it is cut or
// in UTF-16, of which FFmpeg keeps what precedes the first zero byte: what played before it is over all the same.
[[nodiscard]] std::optional<std::string> icy_stream_title(std::string_view block);

// Decodes strict UTF-8, else Windows-1250; empty for UTF-16; resolves character references ("&#345;", "&#x159;",
// "&amp;"); replaces control characters by blanks, collapses runs of blanks and trims. At most 500 characters.
[[nodiscard]] std::wstring readable_text(std::string_view bytes);

} // namespace lumotune::media
