// SPDX-License-Identifier: LGPL-2.1-or-later
// Plays one open stream: reads, decodes and feeds the playout until it is over. Worker thread.
#pragma once

#include "platform/media/attempt.h"
#include "platform/media/current_wish.h"
#include "platform/media/decoder.h"
#include "platform/media/packet_source.h"
#include "platform/media/playout.h"

#include <cstdint>
#include <optional>

namespace lumotune::media {

class StreamSession {
public:
  // All three must outlive it.
  StreamSession(PacketSource& source, Playout& playout, CurrentWish& wish);
  StreamSession(const StreamSession&) = delete;
  StreamSession& operator=(const StreamSession&) = delete;
  ~StreamSession() { playout_.end(); } // also after an exception

  [[nodiscard]] Attempt run(); // once
  // After `run`: how long it played; 0 if no sound was heard.
  [[nodiscard]] std::uint64_t heard_ms() const { return heard_ms_; }

private:
  [[nodiscard]] std::optional<Attempt> step();
  [[nodiscard]] std::optional<Attempt> decode(ReadResult read, const AVPacket* packet);

  PacketSource& source_;
  Playout& playout_;
  CurrentWish& wish_;
  Decoder decoder_;
  std::uint64_t heard_ms_ = 0;
};

} // namespace lumotune::media
