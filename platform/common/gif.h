// SPDX-License-Identifier: LGPL-2.1-or-later
// Decodes the first picture of a GIF file. The bytes are untrusted.
#pragma once

#include "platform/common/pixels.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace lumotune::platform {

// The first bytes of a file, so many that `gif_pixels` can tell.
inline constexpr std::size_t gif_header_length = 10;

// Width times height of the logical screen, from the first bytes; 0 when they are not a GIF header.
[[nodiscard]] std::int64_t gif_pixels(std::string_view bytes);

// In the size of the file's screen; clear where the picture has no pixel. Nothing when the bytes are no GIF, end before
// the picture does, or tell of a side of 0 or of more than `max_side` pixels, or of more than `max_pixels` in all. The
// memory needed is five bytes a pixel and twice the file at most, whatever the file says.
[[nodiscard]] std::optional<Pixels> decode_gif(std::string_view bytes, int max_side,
                                               std::int64_t max_pixels = std::numeric_limits<std::int64_t>::max());

} // namespace lumotune::platform
