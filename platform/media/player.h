// SPDX-License-Identifier: LGPL-2.1-or-later
// The media player on FFmpeg and cubeb.
#pragma once

#include "platform/event_loop.h"
#include "platform/media/output.h"
#include "platform/media_player.h"

#include <functional>
#include <memory>
#include <string>

namespace lumotune::media {

struct PlayerOptions {
  std::string user_agent = "Lumotune";
  int latency_ms = 100; // of the sound device
  // The proxy ("http://host:port") for an address, or empty. Worker thread. May be unset.
  std::function<std::string(const std::string& address)> proxy;
  // How a sound device is made; the machine's own where unset. Device thread.
  std::function<std::unique_ptr<AudioOutput>()> make_output;
  int timeout_ms = 10000;   // a station that sends nothing for that long is lost
  std::string ca_file;      // roots to check certificates with instead of the system's, for tests
  double retry_scale = 1.0; // shortens the waits between tries, for tests
};

// On the user-interface thread, like every call of the player.
[[nodiscard]] std::unique_ptr<platform::MediaPlayer> make_media_player(platform::EventLoop& loop,
                                                                       PlayerOptions options);

} // namespace lumotune::media
