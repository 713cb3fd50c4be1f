// SPDX-License-Identifier: LGPL-2.1-or-later
// What a stream may open. Pure.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::media {

enum class Reach {
  nothing, // an address of no use, or one that its origin may not name
  http,    // http and https
  media,   // Microsoft's media server protocols, mmsh and mmst
  file,    // "file:" and a path
};

// An address as `openable_addresses` gives it. From the network no file is opened; devices never are.
[[nodiscard]] Reach reach_of(std::string_view address, bool from_network);

// What the stream at `top` names in turn: segments, keys, lists. A stream of the network names http and https; a file
// names files that lie beside or below it. `named` is as FFmpeg hands it over, maybe "crypto+http://...".
[[nodiscard]] bool may_name(std::string_view top, std::string_view named);

// FFmpeg's list of the protocols that an opening may use, inner ones and redirections included.
[[nodiscard]] const char* protocols_of(std::string_view address);

// FFmpeg's "crypto+http://..." without what comes first; any other address as it is.
[[nodiscard]] std::string_view without_crypto(std::string_view address);

// "host:port" of an address of the network, with no name and password; the address without these two.
[[nodiscard]] std::string host_of(std::string_view address);
[[nodiscard]] std::string without_credentials(std::string_view address);

} // namespace lumotune::media
