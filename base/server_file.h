// SPDX-License-Identifier: LGPL-2.1-or-later
// The client's file that names the community server, orb_server.tt of the data folder.
#pragma once

#include "base/error_log.h"
#include "base/options_lines.h"
#include "base/program_folder.h"

#include <string>

namespace lumotune::base {

// Takes all lines of the file into `lines` and the address out of the seventh. On any error (no file, fewer lines) the
// client's backup takes the file's place, the error log gets a line that names the procedure, and the address keeps its
// value. User-interface thread.
void read_server_file(const ProgramFolder& folder, ErrorLog& error_log, const wchar_t* procedure, TextLines& lines,
                      std::wstring& address);

} // namespace lumotune::base
