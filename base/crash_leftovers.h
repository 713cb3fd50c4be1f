// SPDX-License-Identifier: LGPL-2.1-or-later
// The files that the program replaces, after a run that was cut off.
#pragma once

#include "base/program_folder.h"

#include <string>

namespace lumotune::base {

// Puts right what a crash during a replacement has left beside them. Before anything is read, and never while another
// copy of the program runs.
void settle_leftovers(const ProgramFolder& folder);

// The names of those that the player itself keeps and that cannot be saved, a line each; empty when all can.
[[nodiscard]] std::wstring files_that_cannot_be_saved(const ProgramFolder& folder);

} // namespace lumotune::base
