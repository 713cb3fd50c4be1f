// SPDX-License-Identifier: LGPL-2.1-or-later
// What a dropped file or text is, and the address in it. Pure; all of it is untrusted.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::player {

// The whole path of a file on a drive of this machine: "C:\..." or "C:/...". No share, no device, no
// stream of a file, nothing relative.
[[nodiscard]] bool is_path_of_drive(std::wstring_view path);

// Whether the path ends in a dot and that, case-insensitively: L"m3u".
[[nodiscard]] bool has_ending(std::wstring_view path, std::wstring_view ending);

// The last part of a path without its ending.
[[nodiscard]] std::wstring stem_of(std::wstring_view path);

// The stream address that a text consists of, in its first line that is not empty; empty for any other text. A browser
// adds the title of a link as a second line.
[[nodiscard]] std::wstring address_of_text(std::wstring_view text);

// The network address of an Internet shortcut, the content of a ".url" file; empty when there is none.
[[nodiscard]] std::wstring address_of_shortcut(std::wstring_view content);

// The host that a network address names, without its port; empty for any other text.
[[nodiscard]] std::wstring host_of_address(std::wstring_view address);

} // namespace lumotune::player
