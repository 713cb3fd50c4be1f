// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the settings file that the player shares with the client: found by their numbers, never by their keys.
// Lines are kept as bytes, so that the client's own come back as they were. Pure.
#pragma once

#include "base/session.h"
#include "platform/ansi_codec.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

using TextLines = std::vector<std::string>;

// The full file that the client makes has this many lines that are not empty.
inline constexpr std::size_t options_line_count = 24;

// Cuts a file into its lines: CR LF, LF or CR end one; what follows the last end is a line when it is not empty.
[[nodiscard]] TextLines split_text_lines(std::string_view bytes);
[[nodiscard]] TextLines without_empty_lines(TextLines lines);

// The text of a line from a character position on; empty for a line that is not there.
[[nodiscard]] std::wstring line_value(const TextLines& lines, std::size_t number, std::size_t position,
                                      const platform::AnsiCodec& codec);

// Reads every value of the file, the account identity among them. A short file gives empty values.
void read_settings(const TextLines& lines, const platform::AnsiCodec& codec, Settings& settings);

// Puts the player's own lines in place; false, and nothing changed, when the file is not a full one.
[[nodiscard]] bool write_settings(TextLines& lines, const platform::AnsiCodec& codec, const Settings& settings);

// All lines, each followed by CR LF, and one more CR LF that closes the file.
[[nodiscard]] std::string join_lines(const TextLines& lines);

} // namespace lumotune::base
