// SPDX-License-Identifier: LGPL-2.1-or-later
// Parses addresses as typed by listeners and found in playlists, and rewrites them for FFmpeg. UTF-8; pure functions.
#pragma once

#include "platform/media_player.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::media {

// Whether it has a control character of ASCII, which could inject lines into a request.
[[nodiscard]] bool has_control(std::string_view text);

enum class AddressKind { none, network, local, unsupported };

// FFmpeg truncates longer ones and opens the truncated address.
inline constexpr std::size_t max_address_bytes = 4000;

// Paths (no scheme, or a drive letter) and file addresses are local; http, https and mms are network. Unsupported:
// other schemes, addresses that are too long, and control characters, which could inject lines into a request.
[[nodiscard]] AddressKind address_kind(std::string_view address);

// Whether an address of that origin may be opened at all (see `platform::AddressOrigin`). Opening a share sends the
// user's name and a password hash to its host; opening a device may hang for ever.
[[nodiscard]] bool may_open(std::string_view address, platform::AddressOrigin origin);

// The origin of a playlist entry; `entry` is absolute. Entries of a network playlist count as coming from the network.
// Entries of a local one are not the listener's own choice either, as most such files were downloaded: they may reach
// what a message may and, if the listener opened a playlist on a share, that same share. Entries of a dropped one count
// as coming from the network: a list that came with a mail or a page is dropped as easily as one's own.
[[nodiscard]] platform::AddressOrigin origin_of_entry(std::string_view list, platform::AddressOrigin list_origin,
                                                      std::string_view entry);

// The addresses to try, in order: mms becomes mmsh, then mmst; a file address becomes a path. Empty for unsupported
// addresses.
[[nodiscard]] std::vector<std::string> openable_addresses(std::string_view address);

// Resolves a playlist entry against the playlist's own address.
[[nodiscard]] std::string resolve_address(std::string_view base, std::string_view entry);

} // namespace lumotune::media
