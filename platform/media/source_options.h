// SPDX-License-Identifier: LGPL-2.1-or-later
// How a stream is opened. Plain values; callbacks run on the worker thread.
#pragma once

#include "platform/media/open_budget.h"

#include <functional>
#include <optional>
#include <string>

namespace lumotune::media {

struct SourceOptions {
  std::string user_agent;
  std::function<std::string(const std::string& address)> proxy; // "http://host:port", or empty; may be unset
  // Called often while FFmpeg waits; true makes it give up.
  std::function<bool()> interrupted;
  // The address comes from the network or a station file: nothing on this machine may be opened.
  bool from_network = true;
  OpenBudget* budget = nullptr; // charged for every opening until sound is found; unset: no limit
  bool ask_retry_after = true;  // spend a request on learning when a busy server wants to be asked again
  int timeout_ms = 10000;       // maximum time without a byte, and the longest wait that yields too little sound
  int open_limit_ms = 25000;    // for the whole opening
  // Provides an address's content instead of the network, for tests. May be unset.
  std::function<std::optional<std::string>(const std::string& address)> memory;
  std::string ca_file; // root certificates instead of the system's, for tests
};

} // namespace lumotune::media
