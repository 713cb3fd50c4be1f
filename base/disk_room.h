// SPDX-License-Identifier: LGPL-2.1-or-later
// Whether the disk of the program's folder is full.
#pragma once

#include "base/program_folder.h"

#include <cstdint>
#include <string>

namespace lumotune::base {

// How the disk of the program's folder is called ("C:", or the folder where it has no letter) when fewer than so many
// bytes are free on it; empty when there are enough, or when the system does not say.
[[nodiscard]] std::wstring full_disk(const ProgramFolder& folder, std::uint64_t bytes);

} // namespace lumotune::base
