// SPDX-License-Identifier: LGPL-2.1-or-later
// The client's file that names the community server, orb_server.tt of the data folder.
#pragma once

#include "base/error_log.h"
#include "base/options_lines.h"
#include "platform/ansi_codec.h"
#include "platform/files.h"
#include "platform/machine.h"

#include <string>

namespace lumotune::base {

struct ServerFileUses {
  platform::Files& files;
  const platform::AnsiCodec& codec;
  const platform::Machine& machine;
  ErrorLog& error_log;
};

// Takes all lines of the file into `lines` and the address out of the seventh. On any error (no file, fewer lines) the
// client's backup takes the file's place, the error log gets a line that names the procedure, and the address keeps its
// value. User-interface thread.
void read_server_file(const ServerFileUses& uses, const wchar_t* procedure, TextLines& lines, std::wstring& address);

} // namespace lumotune::base
