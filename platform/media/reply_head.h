// SPDX-License-Identifier: LGPL-2.1-or-later
// The head of an error page, which FFmpeg drops unread. Worker thread.
#pragma once

#include "platform/media/ffmpeg.h"

#include <string>

namespace lumotune::media {

struct ReplyOptions {
  std::string user_agent;
  std::string ca_file;  // empty: the system's root certificates
  bool verified = true; // whether a bad certificate ends the connection
  int timeout_ms = 3000;
};

// Requests an http or https address once more, over a connection of its own, and returns its status line and header
// fields, at most 16 KiB; empty when there are none in time. Follows no redirection, sends no credentials or cookies.
[[nodiscard]] std::string reply_head(const std::string& address, const ReplyOptions& options,
                                     const AVIOInterruptCB& interrupt);

} // namespace lumotune::media
