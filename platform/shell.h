// SPDX-License-Identifier: LGPL-2.1-or-later
// Starting programs and opening documents.
#pragma once

#include <string>

namespace lumotune::platform {

// How a started program's first window is shown; the numbers are those of the system's show-window values.
enum class ShowWindow : int { normal_focus = 1, minimized_focus = 2, normal_no_focus = 4 };

// Nothing waits for the started program. User-interface thread.
class Shell {
public:
  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  // Starts a program by its exact command line, no shell in between. `application` is the full path of the program
  // where a folder is given, so that a blank in the folder cannot start another program; where it is empty the first
  // word is looked for in the program folder, the current folder and the system's folders, and nothing but that word.
  // False when nothing was started: also for what platform/common/program_file.h refuses, any ending but ".exe" above
  // all.
  [[nodiscard]] virtual bool start(const std::wstring& command_line, const std::wstring& application,
                                   ShowWindow show) = 0;

  // The shell's open action for a file or address in double quotation marks; above 32 it was opened.
  [[nodiscard]] virtual int open(const std::wstring& quoted_target) = 0;
};

} // namespace lumotune::platform
