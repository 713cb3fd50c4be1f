// SPDX-License-Identifier: LGPL-2.1-or-later
// Parses playlists: PLS, M3U (not HLS), ASX, XSPF. Untrusted text from a server; pure functions.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::media {

enum class PlaylistKind { none, pls, m3u, asx, xspf, reference };

inline constexpr std::size_t max_playlist_bytes = 256 * 1024;
inline constexpr std::size_t max_playlist_entries = 32;
inline constexpr int max_playlist_depth = 4;

// Decides by the first bytes and, if these are ambiguous, by the content type and the address. `none` for an HLS list,
// which is itself a stream.
[[nodiscard]] PlaylistKind playlist_kind(std::string_view first_bytes, std::string_view content_type,
                                         std::string_view address);

// The addresses in order, verbatim (may be relative), at most `max_playlist_entries`.
[[nodiscard]] std::vector<std::string> playlist_entries(PlaylistKind kind, std::string_view text);

} // namespace lumotune::media
