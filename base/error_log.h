// SPDX-License-Identifier: LGPL-2.1-or-later
// The error log in the data folder, append-only: error.log, and error.log.old with the earlier lines.
#pragma once

#include "base/program_folder.h"
#include "platform/machine.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace lumotune::base {

class ErrorLog {
public:
  // Limits of each file, in bytes, and of a line's text, in characters.
  static constexpr std::uint64_t max_bytes = 1024ULL * 1024;
  static constexpr std::size_t max_text = 1000;

  struct Uses {
    const ProgramFolder& folder;
    const platform::Machine& machine;
  };
  explicit ErrorLog(const Uses& uses) : uses_(uses) {}

  // Appends one line: date and time, " Lumotune (", the procedure, ") ", the error. Failures to write are ignored.
  // A line of an earlier run that is incomplete is ended first. Account values never go here. User-interface thread.
  void add(const std::wstring& procedure, const std::wstring& what);

  // Whether the last line tells of this error, whatever its time.
  [[nodiscard]] bool last_is(const std::wstring& procedure, const std::wstring& what) const;

private:
  [[nodiscard]] std::string line(const std::wstring& procedure, const std::wstring& what) const;
  [[nodiscard]] bool ends_in_a_line(const std::wstring& log) const;

  Uses uses_;
  bool last_written_ = false; // the file ends with a complete line of this run
};

} // namespace lumotune::base
