// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/error_log.h"

namespace lumotune::core {

void ErrorLog::add(const std::wstring& procedure, const std::wstring& what) {
  const std::wstring line = uses_.machine.date_and_time() + L" Lumotune (" + procedure + L") " + what + L"\r\n";
  // Nowhere is left to report a log that cannot be written.
  (void)uses_.files.append(uses_.machine.program_folder() + L"\\Orb_Data\\error.log", uses_.codec.encode(line));
}

} // namespace lumotune::core
