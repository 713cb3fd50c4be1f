// SPDX-License-Identifier: LGPL-2.1-or-later
// The proxy of the user's settings.
#pragma once

#include <string>

namespace lumotune::platform::win32 {

// The proxy that the user's settings name for an address: "http://host:port", or empty. Any thread.
[[nodiscard]] std::string system_proxy(const std::string& address);

} // namespace lumotune::platform::win32
