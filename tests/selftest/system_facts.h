// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <string>
#include <vector>

namespace lumotune::selftest {

// The version of Windows, of Wine where there is one, processors, screen, resolution and code page.
[[nodiscard]] std::vector<std::string> system_lines();

} // namespace lumotune::selftest
