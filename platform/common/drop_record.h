// SPDX-License-Identifier: LGPL-2.1-or-later
// The memory blocks in which another program hands over what is dropped. Pure; the bytes are untrusted.
#pragma once

#include "platform/drop.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::platform {

// The paths of a CF_HDROP block: a DROPFILES header and a list of UTF-16 texts, each ended by a zero, the list by an
// empty one. Nothing for a block that is malformed, not UTF-16, unfinished, or holds more than `Drop` takes.
[[nodiscard]] std::optional<std::vector<std::wstring>> paths_of_drop_record(std::string_view bytes);

// The text of a CF_UNICODETEXT block up to its first zero, or all of it; nothing when it is empty or longer than `Drop`
// takes.
[[nodiscard]] std::optional<std::wstring> text_of_drop_record(std::string_view bytes);

// Whether a window takes it: files or a text, each within the limits.
[[nodiscard]] bool can_be_dropped(const Drop& drop);

} // namespace lumotune::platform
