// SPDX-License-Identifier: LGPL-2.1-or-later
// Facts of the machine and of this run of the program.
#pragma once

#include <string>

namespace lumotune::platform {

// User-interface thread.
class Machine {
public:
  Machine() = default;
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  virtual ~Machine() = default;

  // Folder of the running program, without a trailing backslash.
  [[nodiscard]] virtual std::wstring program_folder() const = 0;
  // Everything after the program's name on its command line, outer blanks removed.
  [[nodiscard]] virtual std::wstring command_line() const = 0;
  // Whether another copy of the program was already running when this one started, with whatever rights; the answer
  // never changes. A copy that was about to end was waited for, and does not count.
  [[nodiscard]] virtual bool previous_instance() const = 0;
  // The end of the program begins: a copy that starts from now on waits for it. Further calls change nothing.
  virtual void begin_end() = 0;
  // The current date and time as the system's regional settings format them.
  [[nodiscard]] virtual std::wstring date_and_time() const = 0;
};

} // namespace lumotune::platform
