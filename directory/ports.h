// SPDX-License-Identifier: LGPL-2.1-or-later
// What the directory asks of the rooms beside and above it. Synchronous, on the user-interface thread.
#pragma once

#include "core/slot.h"

#include <string>

namespace lumotune::directory {

// Web pages in the system's browser.
struct WebPort {
  virtual ~WebPort() = default;
  virtual void OpenUrl(const std::wstring& address) = 0;          // an address of our own
  virtual void open_station_web(const std::wstring& address) = 0; // one that came from outside
};
struct NoWeb final : WebPort {
  void OpenUrl(const std::wstring& /*address*/) override {}
  void open_station_web(const std::wstring& /*address*/) override {}
};
using WebSlot = core::Slot<WebPort, NoWeb>;

} // namespace lumotune::directory
