// SPDX-License-Identifier: LGPL-2.1-or-later
// Decodes packets to stereo float samples of a fixed rate. No thread or clock of its own: driven by the caller.
#pragma once

#include "platform/media/ffmpeg.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace lumotune::media {

class Decoder {
public:
  // Limits on what a stream may declare: they bound the resampler's memory.
  static constexpr int min_rate = 4000;
  static constexpr int max_rate = 384000;
  static constexpr int max_channels = 8;
  // Resampling steps are bounded: this many samples of the slowest input at the fastest device's rate.
  static constexpr int step_samples = 4096; // of the stream
  static constexpr std::size_t max_step_frames = 256 * 1024;

  // Takes at most `max_step_frames` interleaved stereo frames; called several times per packet. False drops the rest of
  // the packet.
  using Sink = std::function<bool(const float* frames, std::size_t count)>;

  explicit Decoder(int out_rate) : out_rate_(out_rate) {}

  // False for an unsupported codec and for parameters outside the limits above.
  [[nodiscard]] bool open(const AVCodecParameters& parameters);
  // A corrupt packet yields no sound and is not an error. False after too many of them in a row, or when the stream's
  // rate or channel count leaves the limits.
  [[nodiscard]] bool decode(const AVPacket& packet, const Sink& sink);
  void flush(const Sink& sink); // at the end of a file
  // Plays slower (below 0) or faster by that many thousandths for the next second.
  void compensate(int thousandths);
  // Of the decoded frames, which headers may misstate; 0 before the first.
  [[nodiscard]] int sample_rate() const { return in_rate_; }
  // The duration of that many output frames.
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
  int corrupt_ = 0;
  Codec codec_;
  Resampler resampler_;
  std::vector<float> samples_;
};

} // namespace lumotune::media
