// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/error_log.h"

namespace lumotune::base {

// Nowhere is left to report a log that cannot be written.
void ErrorLog::add(const std::wstring& procedure, const std::wstring& what) {
  const std::string line = uses_.folder.codec().encode(uses_.machine.date_and_time() + L" Lumotune (" + procedure +
                                                       L") " + what.substr(0, max_text) + L"\r\n");
  const std::wstring log = uses_.folder.data(L"error.log");
  // One step of the file system: a crash leaves every line in one file or the other. A log that is full and cannot be
  // put aside takes no more lines.
  if (uses_.folder.files().size(log).value_or(0) + line.size() > max_bytes &&
      !uses_.folder.files().move(log, log + L".old"))
    return;
  (void)uses_.folder.files().append(log, line);
}

} // namespace lumotune::base
