// SPDX-License-Identifier: LGPL-2.1-or-later
// Recovery of the files that the program replaces, after a crash.
#pragma once

#include "base/program_folder.h"

#include <string>

namespace lumotune::base {

// Completes or removes what a crash during a replacement left beside the files. Call it before anything is read, and
// never while another copy of the program runs.
void settle_leftovers(const ProgramFolder& folder);

// The names of the player's own files that cannot be saved, one per line; empty when all can.
[[nodiscard]] std::wstring files_that_cannot_be_saved(const ProgramFolder& folder);

} // namespace lumotune::base
