// SPDX-License-Identifier: LGPL-2.1-or-later
// What all stand-in companions do: note how they were started, in a log beside the program.
#pragma once

#include <string>

namespace companion {

[[nodiscard]] std::wstring program_folder();
[[nodiscard]] std::wstring program_name(); // without ".exe"
[[nodiscard]] std::wstring arguments();    // the raw command line after the program's name
// One line, UTF-8, of "<program>.log" in the program's folder; flushed at once.
void note(const std::wstring& line);
// "start show=<n> dir=<current directory> line=<raw command line>".
void note_start();
// Nothing is to be shown, because checks run: the environment variable LUMOTUNE_DEMO_QUIET.
[[nodiscard]] bool quiet();
// A small window with that text; ends by Esc, a click or the close button.
void show_text(const std::wstring& caption, const std::wstring& text);

} // namespace companion
