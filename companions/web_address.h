// SPDX-License-Identifier: LGPL-2.1-or-later
// Whether an address may be handed to the system. Pure. Stations' addresses come from a server that is not to be
// trusted: what they open must be a web page, never a program, a file or a folder.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::companions {

// A longer address is none that a browser takes.
inline constexpr std::size_t max_web_address = 2048;

// Begins with "htt", letter case ignored: opened by the system's explorer program.
[[nodiscard]] bool is_for_explorer(std::wstring_view address);

// What an address never has: a quotation mark or a control character.
[[nodiscard]] bool has_what_no_address_has(std::wstring_view address);

// Has neither, and, where it is for the explorer, nothing after a comma that the explorer would take for a switch, a
// path or a program: commas part its arguments.
[[nodiscard]] bool stays_one_argument(std::wstring_view address);

// A part of an address that came from outside: the same, with "%2C" for every comma where the explorer would take what
// follows one for a switch, a path or a program.
[[nodiscard]] std::wstring with_harmless_commas(const std::wstring& part);

// A host name with a dot, and perhaps a port and a path behind it. Neither a scheme nor a drive nor a way up the
// folders; the ending of the host or the path is not that of a program ("com" is a host's behind "www." or before a
// path).
[[nodiscard]] bool looks_like_web_host(std::wstring_view address);

// An address of a stream that another program may be given: one of the network, of a scheme that players know, with a
// host and without blanks, quotation marks, backslashes and control characters.
[[nodiscard]] bool is_stream_address(std::wstring_view address);

// Names another machine's share, a device, or something behind a scheme that is not "htt...": the shell is not asked to
// open it, whoever gave it. A drive's letter is no scheme.
[[nodiscard]] bool is_foreign_target(std::wstring_view address);

// An address from outside that may be opened: "http://" or "https://" and a host, or what looks like a web host.
[[nodiscard]] bool is_station_web(std::wstring_view address);

} // namespace lumotune::companions
