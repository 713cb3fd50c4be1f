// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/error_log.h"

namespace lumotune::base {

// A failure to write the log is ignored: there is nowhere else to report it.
void ErrorLog::add(const std::wstring& procedure, const std::wstring& what) {
  const std::string line = uses_.folder.codec().encode(uses_.machine.date_and_time() + L" Lumotune (" + procedure +
                                                       L") " + what.substr(0, max_text) + L"\r\n");
  const std::wstring log = uses_.folder.data(L"error.log");
  // The move is atomic: after a crash every line is in one of the two files. A full log that cannot be moved aside
  // takes no more lines.
  if (uses_.folder.files().size(log).value_or(0) + line.size() > max_bytes &&
      !uses_.folder.files().move(log, log + L".old"))
    return;
  (void)uses_.folder.files().append(log, line);
}

} // namespace lumotune::base
