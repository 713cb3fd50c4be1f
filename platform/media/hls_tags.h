// SPDX-License-Identifier: LGPL-2.1-or-later
// Rewrites single tags of an HLS list (RFC 8216) for FFmpeg from their parsed values, so that it never parses a
// server's own text: a tag that it refuses while a list is loaded again leaves it without the segments that it goes on
// to read. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

inline constexpr std::int64_t max_hls_sequence = std::numeric_limits<std::int64_t>::max() / 2; // FFmpeg's own limit

// Whether the text can be an address of a list whose own address is `base` bytes long.
[[nodiscard]] bool is_hls_address(std::string_view text, std::size_t base);

// The whole number at the start of the text, clamped; `least` when there is none.
[[nodiscard]] std::int64_t hls_number(std::string_view text, std::int64_t least, std::int64_t most);
// A duration in seconds, from a millisecond to an hour.
[[nodiscard]] std::string hls_seconds(std::string_view text);
// LENGTH or LENGTH@OFFSET, in bytes. Nothing unless the length is positive and both are below a terabyte.
[[nodiscard]] std::optional<std::string> hls_range(std::string_view text);

// These take what follows the tag's name and return whole lines with their ends.
[[nodiscard]] std::string hls_variant(std::string_view attributes); // #EXT-X-STREAM-INF

struct HlsRendition {
  std::string address; // empty when its sound is in the variants'
  std::string text;
};
// #EXT-X-MEDIA; both empty unless it is audio whose address, if any, can be one.
[[nodiscard]] HlsRendition hls_rendition(std::string_view attributes, std::size_t base);
// #EXT-X-MAP and #EXT-X-KEY; nothing for a list that cannot be played: without an address, of another encryption than
// none and AES-128.
[[nodiscard]] std::optional<std::string> hls_map(std::string_view attributes, std::size_t base);
[[nodiscard]] std::optional<std::string> hls_key(std::string_view attributes, std::size_t base);

} // namespace lumotune::media
