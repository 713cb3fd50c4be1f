// SPDX-License-Identifier: LGPL-2.1-or-later
// What a stream session plays: the audio packets, titles and properties of one open stream. Worker thread.
#pragma once

#include "platform/media/ffmpeg.h"
#include "platform/media/patience.h"

#include <optional>
#include <string>

namespace lumotune::media {

enum class ReadResult { packet, other, ended, lost, cancelled };

class PacketSource {
public:
  PacketSource() = default;
  PacketSource(const PacketSource&) = delete;
  PacketSource& operator=(const PacketSource&) = delete;
  virtual ~PacketSource() = default;

  // The next packet; `other` for one that is not audio. Gives up when waiting yields too little sound.
  [[nodiscard]] virtual ReadResult read(AVPacket& packet) = 0;
  // Nothing has arrived for a while: true only while `read` waits, as asked by what it calls meanwhile.
  [[nodiscard]] virtual bool stalled() const = 0;
  // Reports the duration decoded since the last call.
  virtual void brought(Patience::Time sound) = 0;
  [[nodiscard]] virtual const AVCodecParameters& parameters() const = 0;
  // The title, if it has changed since the last call.
  [[nodiscard]] virtual std::optional<std::wstring> new_title() = 0;
  [[nodiscard]] virtual std::wstring codec_name() const = 0;
  [[nodiscard]] virtual int kbps() const = 0;
  [[nodiscard]] virtual bool live() const = 0;       // without a known end
  [[nodiscard]] virtual bool unverified() const = 0; // may change while it plays
};

} // namespace lumotune::media
