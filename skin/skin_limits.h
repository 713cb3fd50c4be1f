// SPDX-License-Identifier: LGPL-2.1-or-later
// Limits of a skin. Skins are untrusted files from the web; one that exceeds a limit is not used at all.
#pragma once

#include "platform/files.h"
#include "platform/window.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace lumotune::skin {

inline constexpr std::uint64_t max_description_bytes = 1024ULL * 1024;
inline constexpr std::int64_t max_pixels_together = 24'000'000; // of all the skin's pictures together
// Neither a side nor the area of the window exceeds this multiple of the work area's.
inline constexpr int max_work_areas = 10;

// What exceeds the limits in the description at `path` or the pictures in `folder`; empty when nothing does. Reads only
// the first bytes of the pictures. User-interface thread.
[[nodiscard]] std::wstring over_limits(const platform::Files& files, const platform::Window& window,
                                       const std::wstring& path, const std::wstring& folder);

// Whether a window of that size, in twips, is larger than a skin may make it.
[[nodiscard]] bool too_large(const platform::Window& window, int width, int height);

// Whether a skin can show a picture of that file: "play.gif", "play@2x.gif"; letter case is ignored.
[[nodiscard]] bool is_picture_file(std::wstring_view file);

} // namespace lumotune::skin
