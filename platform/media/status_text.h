// SPDX-License-Identifier: LGPL-2.1-or-later
// What the player says of itself: Czech and short. Pure.
#pragma once

#include <string>

namespace lumotune::media {

enum class Phase { stopped, connecting, buffering, playing, waiting };

// Why no sound comes, where it does not.
enum class Trouble {
  none,
  no_address,
  unsupported_address,
  lost,          // the connection broke after sound had flowed
  not_answering, // refused, timed out
  no_such_host,
  not_found,         // http 404, or no such file
  refused_by_server, // any other http error; `http_code` says which
  unknown_format,
  ended, // a file played to its end
  no_device,
  internal, // not the station's fault: no memory, no thread
};

struct StreamStatus {
  Phase phase = Phase::stopped;
  Trouble trouble = Trouble::none;
  int percent = 0;       // of the buffer, while buffering
  int retry_seconds = 0; // until the next try, while waiting; 0 says nothing of it
  int http_code = 0;
  bool unverified = false; // the server's certificate is bad
  bool announces = false;  // sound has just begun: what is to be known of the station comes before its title
  std::wstring title;
  std::wstring codec; // "MP3"
  int kbps = 0;       // 0 unknown
  int hertz = 0;      // 0 unknown

  friend bool operator==(const StreamStatus&, const StreamStatus&) = default;
};

[[nodiscard]] std::wstring state_text(const StreamStatus& status);   // "Připojování..."
[[nodiscard]] std::wstring quality_text(const StreamStatus& status); // "MP3 128 kbps 44,1 kHz"
// "Přehrávání: Artist - Title (128 kbps)"
[[nodiscard]] std::wstring status_text(const StreamStatus& status);
// What is to be known of the station for as long as it plays: "Neověřený server", or nothing.
[[nodiscard]] std::wstring warning_text(const StreamStatus& status);
// Columns 1-32 the state, 33-54 the quality, from 55 the title, or the state where there is none.
[[nodiscard]] std::wstring status_columns(const StreamStatus& status);

} // namespace lumotune::media
