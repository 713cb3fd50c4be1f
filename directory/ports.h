// SPDX-License-Identifier: LGPL-2.1-or-later
// What the directory asks of the rooms beside and above it. Synchronous, on the user-interface thread.
#pragma once

#include "base/slot.h"

#include <string>

namespace lumotune::directory {

// Web pages in the system's browser. Each answers false where the address is refused.
struct WebPort {
  virtual ~WebPort() = default;
  [[nodiscard]] virtual bool OpenUrl(const std::wstring& address) = 0;          // an address of our own
  [[nodiscard]] virtual bool open_station_web(const std::wstring& address) = 0; // one that came from outside
};
struct NoWeb final : WebPort {
  [[nodiscard]] bool OpenUrl(const std::wstring& /*address*/) override { return true; }
  [[nodiscard]] bool open_station_web(const std::wstring& /*address*/) override { return true; }
};
using WebSlot = base::Slot<WebPort, NoWeb>;

} // namespace lumotune::directory
