// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/error_log.h"

namespace lumotune::base {

// A crash or a full disk may have cut the last line short.
bool ErrorLog::ends_in_a_line(const std::wstring& log) const {
  std::string bytes;
  return !uses_.folder.files().read_at_most(log, bytes, max_bytes) || bytes.empty() || bytes.ends_with('\n');
}

std::string ErrorLog::line(const std::wstring& procedure, const std::wstring& what) const {
  return uses_.folder.codec().encode(L" Lumotune (" + procedure + L") " + what.substr(0, max_text) + L"\r\n");
}

bool ErrorLog::last_is(const std::wstring& procedure, const std::wstring& what) const {
  std::string bytes;
  return uses_.folder.files().read_at_most(uses_.folder.data(L"error.log"), bytes, max_bytes) &&
         bytes.ends_with(line(procedure, what));
}

// A failure to write the log is ignored: there is nowhere else to report it.
void ErrorLog::add(const std::wstring& procedure, const std::wstring& what) {
  std::string added = uses_.folder.codec().encode(uses_.machine.date_and_time()) + line(procedure, what);
  const std::wstring log = uses_.folder.data(L"error.log");
  const std::string end_of_torn = last_written_ || ends_in_a_line(log) ? "" : "\r\n";
  // The move is atomic: after a crash every line is in one of the two files. A full log that cannot be moved aside
  // takes no more lines.
  if (uses_.folder.files().size(log).value_or(0) + end_of_torn.size() + added.size() <= max_bytes)
    added.insert(0, end_of_torn);
  else if (!uses_.folder.files().move(log, log + L".old"))
    return;
  last_written_ = uses_.folder.files().append(log, added);
}

} // namespace lumotune::base
