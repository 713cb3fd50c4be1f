// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/stream_session.h"

#include <chrono>
#include <cstddef>
#include <utility>

namespace lumotune::media {

StreamSession::StreamSession(PacketSource& source, Playout& playout, CurrentWish& wish)
    : source_(source), playout_(playout), wish_(wish), decoder_(playout.rate()) {}

Attempt StreamSession::run() {
  if (!decoder_.open(source_.parameters()))
    return {Outcome::failed, Trouble::unknown_format};
  StreamStatus status;
  status.unverified = source_.unverified();
  status.codec = source_.codec_name();
  status.kbps = source_.kbps();
  status.hertz = source_.parameters().sample_rate;
  const auto opened = wish_.now();
  playout_.begin(status, source_.live(), [this] { return source_.stalled(); });
  std::optional<Attempt> result;
  while (!result)
    result = step();
  if (playout_.flowed())
    heard_ms_ =
        static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(wish_.now() - opened).count());
  return *result;
}

// Handles one packet; returns the result once the stream is over.
std::optional<Attempt> StreamSession::step() {
  const Packet packet(av_packet_alloc());
  const auto begun = wish_.now();
  const ReadResult read = packet == nullptr ? ReadResult::lost : source_.read(*packet);
  playout_.note_read(wish_.now() - begun);
  if (wish_.superseded())
    return Attempt{Outcome::cancelled};
  if (read == ReadResult::cancelled || wish_.threw()) // no newer wish: cancelled by an exception
    return Attempt{Outcome::failed, Trouble::internal};
  if (const auto over = decode(read, packet.get()))
    return over;
  playout_.update(source_.unverified(), decoder_.sample_rate());
  if (auto title = source_.new_title())
    playout_.add_title(std::move(*title));
  playout_.correct_drift(decoder_);
  playout_.tick();
  playout_.pace_reads();
  return wish_.superseded() ? std::optional(Attempt{Outcome::cancelled}) : std::nullopt;
}

std::optional<Attempt> StreamSession::decode(ReadResult read, const AVPacket* packet) {
  std::size_t decoded = 0;
  const auto sink = [&, this](const float* frames, std::size_t count) {
    decoded += count;
    playout_.write(frames, count);
    return !wish_.superseded();
  };
  switch (read) {
  case ReadResult::packet:
    if (!decoder_.decode(*packet, sink))
      return Attempt{Outcome::failed, Trouble::unknown_format};
    break;
  case ReadResult::ended:
    decoder_.flush(sink);
    playout_.drain();
    return wish_.superseded() ? Attempt{Outcome::cancelled} : Attempt{Outcome::ended, Trouble::ended};
  case ReadResult::lost:
    return Attempt{Outcome::lost, Trouble::lost};
  case ReadResult::other:
  case ReadResult::cancelled: // handled by the caller
    break;
  }
  source_.brought(decoder_.duration(decoded));
  return std::nullopt;
}

} // namespace lumotune::media
