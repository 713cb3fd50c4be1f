// SPDX-License-Identifier: LGPL-2.1-or-later
// What a skin may ask for: it is a stranger's work, found on the web. One that wants more is not used at all.
#pragma once

#include "platform/files.h"
#include "platform/window.h"

#include <cstdint>
#include <string>

namespace lumotune::skin {

inline constexpr std::uint64_t max_description_bytes = 1024ULL * 1024;
inline constexpr std::int64_t max_pixels_together = 24'000'000; // of all pictures of a skin
inline constexpr int max_work_areas =
    10; // the window: neither a side nor its area is larger than so many of the desktop

// What the description at `path` or the pictures in `folder` ask too much of; empty when nothing. Reads the pictures'
// first bytes only. User-interface thread.
[[nodiscard]] std::wstring over_limits(const platform::Files& files, const platform::Window& window,
                                       const std::wstring& path, const std::wstring& folder);

// Whether a window of that size, in twips, is more than a skin may have.
[[nodiscard]] bool too_large(const platform::Window& window, int width, int height);

} // namespace lumotune::skin
