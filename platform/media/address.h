// SPDX-License-Identifier: LGPL-2.1-or-later
// Addresses as the listener or a list gives them, and as FFmpeg takes them (UTF-8). Pure.
#pragma once

#include "platform/media_player.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::media {

enum class AddressKind { none, network, local, unsupported };

// FFmpeg would cut a longer one and open what is left.
inline constexpr std::size_t max_address_bytes = 4000;

// No scheme, a drive letter and file addresses are local; http, https and mms come from the network. One
// that is too long or holds control characters, which could add lines to a request, is unsupported.
[[nodiscard]] AddressKind address_kind(std::string_view address);

// Whether an address from there may be opened at all, by what `platform::AddressOrigin` says. Asking for a share hands
// the user's name and a proof of his password to its host; opening a device may hang for ever.
[[nodiscard]] bool may_open(std::string_view address, platform::AddressOrigin origin);

// Where an entry of a list comes from, `entry` being whole already. What a list of the network names is the network's.
// What a list on this machine names is not the listener's own word either, as most such lists were downloaded: it
// reaches no further than a message, but for a list on a share that the listener opened: the rest of that share.
[[nodiscard]] platform::AddressOrigin origin_of_entry(std::string_view list, platform::AddressOrigin list_origin,
                                                      std::string_view entry);

// What to try, in order: mms becomes mmsh, then mmst; a file address becomes a path. Empty for an unsupported one.
[[nodiscard]] std::vector<std::string> openable_addresses(std::string_view address);

// An entry of a list, against the list's own address where it is relative.
[[nodiscard]] std::string resolve_address(std::string_view base, std::string_view entry);

} // namespace lumotune::media
