// SPDX-License-Identifier: LGPL-2.1-or-later
// How an attempt to play an address ends.
#pragma once

#include "platform/media/stream_status.h"

#include <chrono>
#include <optional>

namespace lumotune::media {

enum class Outcome {
  cancelled, // a newer wish has arrived
  failed,    // no sound; the next address of a playlist may do better
  lost,      // the connection broke while it played
  ended,     // a file played to its end
};

struct Attempt {
  Outcome outcome = Outcome::failed;
  Trouble trouble = Trouble::none;
  int http_code = 0; // of `Trouble::not_found` and `Trouble::refused_by_server`
  std::optional<std::chrono::seconds> retry_after = std::nullopt; // as the server asks
};

} // namespace lumotune::media
