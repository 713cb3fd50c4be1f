// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/server_file.h"

namespace lumotune::base {

void read_server_file(const ProgramFolder& folder, ErrorLog& error_log, const wchar_t* procedure, TextLines& lines,
                      std::wstring& address) {
  constexpr std::size_t address_line = 6;
  constexpr std::size_t address_position = 16;
  lines.clear();
  const std::wstring path = folder.data(L"orb_server.tt");
  if (std::string bytes; folder.files().read_at_most(path, bytes, max_server_bytes))
    lines = split_text_lines(bytes);
  if (lines.size() > address_line) {
    address = line_value(lines, address_line, address_position, folder.codec());
    return;
  }
  // Without a backup the file stays as it is; the error is logged below.
  (void)folder.files().copy(path + L".tmp", path);
  error_log.add(procedure, L"orb_server.tt");
}

} // namespace lumotune::base
