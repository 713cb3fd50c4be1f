// SPDX-License-Identifier: LGPL-2.1-or-later
// The file that a request to start a program names. Pure.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::platform {

struct ProgramFile {
  std::wstring name;  // a plain file name, or a whole path; ends in ".exe"; empty where nothing may be started
  bool whole = false; // a whole path, which needs no search
};

// The file that Shell::start may run. `application` decides where it is given, else the first word of the command line.
// Refused, because the system runs a file by its content whatever it is called: any ending but ".exe" (letter case
// ignored; none counts as ".exe"), a dot or blank at the end of the name, which the file system drops, a stream of a
// file, a relative path, a control character, and a path without quotation marks at the head of a command line, which a
// blank would cut short.
[[nodiscard]] ProgramFile program_file(std::wstring_view command_line, std::wstring_view application);

} // namespace lumotune::platform
