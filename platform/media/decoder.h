// SPDX-License-Identifier: LGPL-2.1-or-later
// Packets to stereo float samples of one rate. No thread, no clock: stepped by its caller.
#pragma once

#include "platform/media/ffmpeg.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace lumotune::media {

class Decoder {
public:
  // Takes interleaved stereo frames; may be called several times a packet.
  using Sink = std::function<void(const float* frames, std::size_t count)>;

  explicit Decoder(int out_rate) : out_rate_(out_rate) {}

  // False for a codec that cannot be decoded.
  [[nodiscard]] bool open(const AVCodecParameters& parameters);
  // A packet that is torn gives no sound and is no error: the next one may be whole. False after very many of them.
  [[nodiscard]] bool decode(const AVPacket& packet, const Sink& sink);
  void flush(const Sink& sink); // at the end of a file
  // Plays that many thousandths slower (below 0) or faster, for the second to come.
  void compensate(int thousandths);
  // What the frames really are; 0 before the first.
  [[nodiscard]] int sample_rate() const { return in_rate_; }

private:
  void receive(const Sink& sink);
  [[nodiscard]] bool match_resampler(const AVFrame& frame);

  int out_rate_;
  int in_rate_ = 0;
  int in_format_ = -1;
  int in_channels_ = 0;
  int torn_ = 0;
  Codec codec_;
  Resampler resampler_;
  std::vector<float> samples_;
};

} // namespace lumotune::media
