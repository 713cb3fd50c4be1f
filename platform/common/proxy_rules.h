// SPDX-License-Identifier: LGPL-2.1-or-later
// What the user's proxy settings mean for one address. Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::platform {

// The settings as the system keeps them, ASCII.
struct ProxySettings {
  std::string proxies; // "host:port", or "http=host:port;https=host:port"
  std::string bypass;  // entries that are reached directly, separated by semicolons or blanks
};

// The proxy for that address ("http://host:port"), empty when it is reached directly. This machine always is.
[[nodiscard]] std::string proxy_for(const ProxySettings& settings, std::string_view address);

// Whether an entry of the list is meant for the host of that address. An entry is a host name or number in which *
// stands for any letters, with a scheme before it and a port after it where it is for these alone; letter case is
// ignored.
// "<local>" is every name without a dot.
[[nodiscard]] bool bypasses_proxy(std::string_view list, std::string_view address);

} // namespace lumotune::platform
