// SPDX-License-Identifier: LGPL-2.1-or-later
// What a media player knows about the stream it plays. Values only: rooms above turn them into text.
#pragma once

#include <string>

namespace lumotune::platform {

enum class StreamPhase { stopped, connecting, buffering, playing, waiting };

// Why there is no sound.
enum class StreamTrouble {
  none,
  no_address,
  unsupported_address,
  lost,          // the connection was lost after sound had been heard
  not_answering, // refused, timed out
  no_such_host,
  not_found,         // HTTP 404 (`http_code` is set), or no such file
  refused_by_server, // any other HTTP error; see `http_code`
  not_secure,        // the encrypted connection could not be made
  unknown_format,
  ended,     // a file played to its end
  no_device, // the stream plays, but there is no sound device
  internal,  // not the station's fault: out of memory, no thread
};

struct StreamStatus {
  StreamPhase phase = StreamPhase::stopped;
  StreamTrouble trouble = StreamTrouble::none;
  int percent = 0;           // while buffering: of the buffer needed to start; in a stall, of four seconds
  int retry_seconds = 0;     // until the next attempt, while waiting; 0: unknown
  int http_code = 0;         // 0: none
  bool unverified = false;   // the server's certificate is invalid
  bool just_started = false; // playing for less than three seconds
  std::wstring title;        // one line of at most 500 characters; empty: none
  std::wstring codec;        // as "MP3"; empty: unknown
  int kbps = 0;              // 0: unknown
  int hertz = 0;             // sample rate; 0: unknown

  friend bool operator==(const StreamStatus&, const StreamStatus&) = default;
};

} // namespace lumotune::platform
