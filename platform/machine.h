// SPDX-License-Identifier: LGPL-2.1-or-later
// Information about the machine and this run of the program.
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
  // The command line after the program's name, outer blanks removed.
  [[nodiscard]] virtual std::wstring command_line() const = 0;
  // Whether another copy of the program, with whatever rights, was already running when this one started; the answer
  // never changes. A copy that was ending was waited for and does not count.
  [[nodiscard]] virtual bool previous_instance() const = 0;
  // Begins the end of the program: a copy started from now on waits for it. Further calls have no effect.
  virtual void begin_end() = 0;
  // The current date and time in the format of the system's regional settings.
  [[nodiscard]] virtual std::wstring date_and_time() const = 0;
};

} // namespace lumotune::platform
