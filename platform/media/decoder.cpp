// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/decoder.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace lumotune::media {
namespace {

bool is_rate(int rate) {
  return rate >= Decoder::min_rate && rate <= Decoder::max_rate;
}
bool are_channels(int channels) {
  return channels >= 1 && channels <= Decoder::max_channels;
}

// Pointers to the samples from `offset`.
void planes_at(const AVFrame& frame, int offset, std::array<const std::uint8_t*, Decoder::max_channels>& planes) {
  const auto format = static_cast<AVSampleFormat>(frame.format);
  const int channels = frame.ch_layout.nb_channels;
  const bool planar = av_sample_fmt_is_planar(format) != 0;
  const std::ptrdiff_t bytes =
      static_cast<std::ptrdiff_t>(offset) * av_get_bytes_per_sample(format) * (planar ? 1 : channels);
  for (int i = 0; i < (planar ? channels : 1); ++i)
    planes[static_cast<std::size_t>(i)] = frame.extended_data[i] + bytes;
}

} // namespace

// A rate or channel count missing in the headers (0) is checked at the first frame.
bool Decoder::open(const AVCodecParameters& parameters) {
  if ((parameters.sample_rate != 0 && !is_rate(parameters.sample_rate)) ||
      (parameters.ch_layout.nb_channels != 0 && !are_channels(parameters.ch_layout.nb_channels)))
    return false;
  const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
  if (codec == nullptr)
    return false;
  codec_.reset(avcodec_alloc_context3(codec));
  if (codec_ == nullptr || avcodec_parameters_to_context(codec_.get(), &parameters) < 0)
    return false;
  return avcodec_open2(codec_.get(), codec, nullptr) >= 0;
}

// Chained streams change rate, format and channels midway: the resampler follows each frame.
bool Decoder::match_resampler(const AVFrame& frame) {
  const int channels = frame.ch_layout.nb_channels;
  if (resampler_ != nullptr && frame.sample_rate == in_rate_ && frame.format == in_format_ && channels == in_channels_)
    return true;
  AVChannelLayout in{};
  if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
    av_channel_layout_default(&in, channels);
  else if (av_channel_layout_copy(&in, &frame.ch_layout) < 0)
    return false;
  AVChannelLayout out{};
  av_channel_layout_default(&out, 2);
  SwrContext* made = nullptr;
  const int error = swr_alloc_set_opts2(&made, &out, AV_SAMPLE_FMT_FLT, out_rate_, &in,
                                        static_cast<AVSampleFormat>(frame.format), frame.sample_rate, 0, nullptr);
  av_channel_layout_uninit(&in);
  resampler_.reset(made);
  if (error < 0 || swr_init(made) < 0) {
    resampler_.reset();
    return false;
  }
  in_rate_ = frame.sample_rate;
  in_format_ = frame.format;
  in_channels_ = channels;
  return true;
}

// In steps, so that the buffer stays bounded and a newer wish is noticed within a packet.
bool Decoder::resample(const AVFrame& frame, const Sink& sink) {
  std::array<const std::uint8_t*, max_channels> planes{};
  for (int done = 0; done < frame.nb_samples;) {
    const int taken = std::min(frame.nb_samples - done, step_samples);
    const int most = swr_get_out_samples(resampler_.get(), taken);
    if (most <= 0 || static_cast<std::size_t>(most) > max_step_frames)
      return true; // no output
    samples_.resize(static_cast<std::size_t>(most) * 2);
    auto* out = reinterpret_cast<std::uint8_t*>(samples_.data());
    planes_at(frame, done, planes);
    const int count = swr_convert(resampler_.get(), &out, most, planes.data(), taken);
    if (count > 0 && !sink(samples_.data(), static_cast<std::size_t>(count)))
      return false;
    done += taken;
  }
  return true;
}

bool Decoder::receive(const Sink& sink) {
  const Frame frame(av_frame_alloc());
  while (frame != nullptr && avcodec_receive_frame(codec_.get(), frame.get()) >= 0) {
    if (!is_rate(frame->sample_rate) || !are_channels(frame->ch_layout.nb_channels))
      return false;
    if (!match_resampler(*frame))
      continue;
    corrupt_ = 0;
    if (!resample(*frame, sink))
      return true; // the sink wants no more
  }
  return true;
}

bool Decoder::decode(const AVPacket& packet, const Sink& sink) {
  constexpr int max_corrupt = 500;
  ++corrupt_;
  (void)avcodec_send_packet(codec_.get(), &packet); // a rejected packet yields no frame, which is counted as corrupt
  return receive(sink) && corrupt_ < max_corrupt;
}

void Decoder::flush(const Sink& sink) {
  (void)avcodec_send_packet(codec_.get(), nullptr);
  (void)receive(sink); // the file ends in any case
}

void Decoder::compensate(int thousandths) {
  if (resampler_ != nullptr)
    (void)swr_set_compensation(resampler_.get(), -out_rate_ * thousandths / 1000, out_rate_);
}

} // namespace lumotune::media
