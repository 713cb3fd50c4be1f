// SPDX-License-Identifier: LGPL-2.1-or-later
// The client's file with the address of the community server, orb_server.tt in the data folder.
#pragma once

#include "base/error_log.h"
#include "base/options_lines.h"
#include "base/program_folder.h"

#include <cstdint>
#include <string>

namespace lumotune::base {

// A longer file is an error.
inline constexpr std::uint64_t max_server_bytes = 64ULL * 1024;

// Reads all lines of the file into `lines`, and the address from the seventh. On any error (no file, too few lines) the
// file is restored from the client's backup, an error naming the procedure is logged, and the address keeps its value.
// User-interface thread.
void read_server_file(const ProgramFolder& folder, ErrorLog& error_log, const wchar_t* procedure, TextLines& lines,
                      std::wstring& address);

} // namespace lumotune::base
