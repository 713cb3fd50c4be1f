// SPDX-License-Identifier: LGPL-2.1-or-later
// Packets to stereo float samples of one rate. No thread, no clock: stepped by its caller.
#pragma once

#include "platform/media/ffmpeg.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace lumotune::media {

class Decoder {
public:
  // What sound may say of itself. All else is refused: the resampler's memory grows with what a stream claims.
  static constexpr int min_rate = 4000;
  static constexpr int max_rate = 384000;
  static constexpr int max_channels = 8;
  // The largest step: that much of the slowest sound for the fastest device.
  static constexpr int step_samples = 4096; // of the stream
  static constexpr std::size_t max_step_frames = 256 * 1024;

  // Takes at most `max_step_frames` interleaved stereo frames; called several times a packet. False ends the packet.
  using Sink = std::function<bool(const float* frames, std::size_t count)>;

  explicit Decoder(int out_rate) : out_rate_(out_rate) {}

  // False for a codec that cannot be decoded, and for sound outside the limits above.
  [[nodiscard]] bool open(const AVCodecParameters& parameters);
  // A packet that is torn gives no sound and is no error: the next one may be whole. False after very many of them,
  // and where the stream's rate or channels leave the limits.
  [[nodiscard]] bool decode(const AVPacket& packet, const Sink& sink);
  void flush(const Sink& sink); // at the end of a file
  // Plays that many thousandths slower (below 0) or faster, for the second to come.
  void compensate(int thousandths);
  // What the frames really are; 0 before the first.
  [[nodiscard]] int sample_rate() const { return in_rate_; }
  // How long that many of the frames that the sink takes last.
  [[nodiscard]] std::chrono::microseconds duration(std::size_t frames) const {
    return std::chrono::microseconds(frames * 1'000'000 / static_cast<std::size_t>(out_rate_));
  }

private:
  [[nodiscard]] bool receive(const Sink& sink);
  [[nodiscard]] bool match_resampler(const AVFrame& frame);
  [[nodiscard]] bool resample(const AVFrame& frame, const Sink& sink);

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
