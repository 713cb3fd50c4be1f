// SPDX-License-Identifier: LGPL-2.1-or-later
// The first picture of a GIF file. The bytes are not to be trusted.
#pragma once

#include "platform/common/pixels.h"

#include <optional>
#include <string_view>

namespace lumotune::platform {

// In the size of the file's screen; clear where the picture has no pixel. Nothing when the bytes are no GIF, end before
// the picture does, or tell of a side of 0 or of more than `max_side` pixels.
[[nodiscard]] std::optional<Pixels> decode_gif(std::string_view bytes, int max_side);

} // namespace lumotune::platform
