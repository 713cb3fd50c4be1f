// SPDX-License-Identifier: LGPL-2.1-or-later
// Access rules: what a stream may open. Pure.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::media {

enum class Reach {
  nothing, // malformed, unsupported, or not allowed for its origin
  http,    // http and https
  media,   // Microsoft's media server protocols, mmsh and mmst
  file,    // "file:" and a path
};

// For an address as returned by `openable_addresses`. Network streams never reach files; devices are never reached.
[[nodiscard]] Reach reach_of(std::string_view address, bool from_network);

// Whether the stream at `top` may refer to `named`: segments, keys, lists. A network stream may refer to http and
// https; a file to files in its own folder or below. `named` is as passed by FFmpeg, possibly "crypto+http://...".
[[nodiscard]] bool may_name(std::string_view top, std::string_view named);

// The whitelist of protocols for an opening, inner layers and redirections included, in FFmpeg's format.
[[nodiscard]] const char* protocols_of(std::string_view address);

// FFmpeg's "crypto+http://..." without its prefix; any other address unchanged.
[[nodiscard]] std::string_view without_crypto(std::string_view address);

// "host:port" of a network address, without credentials; the address without credentials.
[[nodiscard]] std::string host_of(std::string_view address);
[[nodiscard]] std::string without_credentials(std::string_view address);

} // namespace lumotune::media
