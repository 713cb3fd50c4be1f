// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the settings file that the player shares with the client, addressed by line number, never by key. Lines
// are kept as bytes, so that the client's own are written back unchanged. Pure.
#pragma once

#include "base/session.h"
#include "platform/ansi_codec.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

using TextLines = std::vector<std::string>;

// The number of non-empty lines in a complete file, as the client writes it.
inline constexpr std::size_t options_line_count = 24;

// Splits a file into its lines: CR LF, LF or CR ends one; a non-empty rest after the last line end is a line too.
[[nodiscard]] TextLines split_text_lines(std::string_view bytes);
[[nodiscard]] TextLines without_empty_lines(TextLines lines);

// The text of a line from a character position on; empty for a missing line.
[[nodiscard]] std::wstring line_value(const TextLines& lines, std::size_t number, std::size_t position,
                                      const platform::AnsiCodec& codec);

// Reads every value, including the account identity. Values missing from a short file are empty.
void read_settings(const TextLines& lines, const platform::AnsiCodec& codec, Settings& settings);

// Replaces the player's own lines; false, and nothing changed, when the file is incomplete.
[[nodiscard]] bool write_settings(TextLines& lines, const platform::AnsiCodec& codec, const Settings& settings);

// All lines, each ended by CR LF, and a final extra CR LF.
[[nodiscard]] std::string join_lines(const TextLines& lines);

} // namespace lumotune::base
