// SPDX-License-Identifier: LGPL-2.1-or-later
// Configuration of a media player. Plain values; the callbacks name their thread.
#pragma once

#include "platform/media/output.h"

#include <functional>
#include <memory>
#include <string>

namespace lumotune::media {

struct PlayerOptions {
  std::string user_agent = "Lumotune";
  int latency_ms = 100; // of the sound device; less causes gaps on some sound systems
  // The proxy ("http://host:port") for an address, or empty. Worker thread. May be unset.
  std::function<std::string(const std::string& address)> proxy;
  // Creates the sound device; unset: the machine's own. Device thread.
  std::function<std::unique_ptr<AudioOutput>()> make_output;
  int timeout_ms = 10000;   // a station that sends nothing for this long is lost
  std::string ca_file;      // root certificates instead of the system's, for tests
  double retry_scale = 1.0; // shortens the waits between tries, for tests
};

} // namespace lumotune::media
