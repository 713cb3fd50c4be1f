// SPDX-License-Identifier: LGPL-2.1-or-later
// Decides whether an address may be handed to the system. Pure. Station addresses come from an untrusted server: they
// may open a web page, never a program, a file or a folder.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::companions {

// No browser takes a longer address.
inline constexpr std::size_t max_web_address = 2048;

// Begins with "htt", case-insensitively: opened by the system's explorer program.
[[nodiscard]] bool is_for_explorer(std::wstring_view address);

// Contains a quotation mark or a control character.
[[nodiscard]] bool has_what_no_address_has(std::wstring_view address);

// Contains neither, and, if meant for the explorer, nothing after a comma that it would take for a switch, a path or a
// program: it splits its arguments at commas.
[[nodiscard]] bool stays_one_argument(std::wstring_view address);

// Part of an address from outside, with every comma replaced by "%2C" if the explorer would take what follows one for a
// switch, a path or a program; otherwise unchanged.
[[nodiscard]] std::wstring with_harmless_commas(const std::wstring& part);

// A host name with a dot, optionally followed by a port and a path. Not a scheme, a drive or a path to a parent folder;
// neither host nor path may end in a program's extension ("com" counts as a host's after "www." or before a path).
[[nodiscard]] bool looks_like_web_host(std::wstring_view address);

// A stream address that may be passed to another program: a network address of a scheme that players know, with a host
// and without blanks, quotation marks, backslashes and control characters.
[[nodiscard]] bool is_stream_address(std::wstring_view address);

// Names another machine's share, a device, or anything with a scheme other than "htt...": never passed to the shell,
// whatever its source. A drive letter is not a scheme.
[[nodiscard]] bool is_foreign_target(std::wstring_view address);

// An address from outside that may be opened: "http://" or "https://" and a host, or text that looks like a web host.
[[nodiscard]] bool is_station_web(std::wstring_view address);

} // namespace lumotune::companions
