// SPDX-License-Identifier: LGPL-2.1-or-later
// Addresses as the listener or a list gives them, and as FFmpeg takes them (UTF-8). Pure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumotune::media {

enum class AddressKind { none, network, local, unsupported };

// No scheme, a drive letter and file addresses are local; http, https, mms, rtsp and rtp come from the network.
[[nodiscard]] AddressKind address_kind(std::string_view address);

// What to try, in order: mms becomes mmsh, then mmst; a file address becomes a path. Empty for an unsupported one.
[[nodiscard]] std::vector<std::string> openable_addresses(std::string_view address);

// An entry of a list, against the list's own address where it is relative.
[[nodiscard]] std::string resolve_address(std::string_view base, std::string_view entry);

} // namespace lumotune::media
