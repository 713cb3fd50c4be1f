// SPDX-License-Identifier: LGPL-2.1-or-later
// A skin packed as one .zip: NAME.skin and the folder NAME of its pictures, at the top or in one folder. From the web,
// so it is checked whole before anything of it is kept.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

inline constexpr std::size_t max_archive_bytes = 32ULL * 1024 * 1024; // of the archive, and of its content together

struct SkinPicture {
  std::wstring file; // "play.gif", without a folder
  std::string bytes;
};

struct UnpackedSkin {
  std::wstring name; // a valid file name that the settings can hold
  std::string description;
  std::vector<SkinPicture> pictures; // each can be shown
};

// Width times height of a picture that can be shown, from its whole file; 0 for any other.
using ShownPixels = std::function<std::int64_t(std::string_view bytes)>;

// Only the description and the pictures that a skin can have are unpacked; whatever else lies in the archive is
// ignored. Nothing when the archive is torn, holds no skin or several, or exceeds the limits of a skin; `refused` is
// then the reason, Czech, within a sentence. At most `max_archive_bytes` are unpacked, and one picture more than
// `max_pixels_together` is looked at.
[[nodiscard]] std::optional<UnpackedSkin> unpack_skin(std::string_view archive, const platform::AnsiCodec& codec,
                                                      const ShownPixels& shown_pixels, std::wstring& refused);

} // namespace lumotune::skin
