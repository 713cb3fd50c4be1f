// SPDX-License-Identifier: LGPL-2.1-or-later
// Starts programs and opens documents.
#pragma once

#include <string>

namespace lumotune::platform {

// How a started program's first window is shown; the values are the system's show-window constants.
enum class ShowWindow : int { normal_focus = 1, minimized_focus = 2, normal_no_focus = 4 };

// Does not wait for started programs. User-interface thread.
class Shell {
public:
  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  // Starts a program by its exact command line, without a shell. `application` is the program's full path when a folder
  // is given, so that a blank in the folder cannot start another program; when it is empty, the first word, and nothing
  // else, is searched for in the program folder, the current folder and the system's folders. False when nothing was
  // started, including anything platform/common/program_file.h refuses, in particular every extension but ".exe".
  [[nodiscard]] virtual bool start(const std::wstring& command_line, const std::wstring& application,
                                   ShowWindow show) = 0;

  // The shell's open action for a file or address in double quotation marks; above 32 means success.
  [[nodiscard]] virtual int open(const std::wstring& quoted_target) = 0;
};

} // namespace lumotune::platform
