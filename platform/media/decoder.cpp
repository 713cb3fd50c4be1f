// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/decoder.h"

#include <cstdint>

namespace lumotune::media {

bool Decoder::open(const AVCodecParameters& parameters) {
  const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
  if (codec == nullptr)
    return false;
  codec_.reset(avcodec_alloc_context3(codec));
  if (codec_ == nullptr || avcodec_parameters_to_context(codec_.get(), &parameters) < 0)
    return false;
  return avcodec_open2(codec_.get(), codec, nullptr) >= 0;
}

// Chained streams change rate, format and channels in the middle: the resampler follows each frame.
bool Decoder::match_resampler(const AVFrame& frame) {
  const int channels = frame.ch_layout.nb_channels;
  if (resampler_ != nullptr && frame.sample_rate == in_rate_ && frame.format == in_format_ && channels == in_channels_)
    return true;
  if (frame.sample_rate <= 0 || channels <= 0)
    return false;
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

void Decoder::receive(const Sink& sink) {
  const Frame frame(av_frame_alloc());
  while (frame != nullptr && avcodec_receive_frame(codec_.get(), frame.get()) >= 0) {
    if (!match_resampler(*frame))
      continue;
    const int most = swr_get_out_samples(resampler_.get(), frame->nb_samples);
    if (most <= 0)
      continue;
    samples_.resize(static_cast<std::size_t>(most) * 2);
    auto* out = reinterpret_cast<std::uint8_t*>(samples_.data());
    const int count = swr_convert(resampler_.get(), &out, most, const_cast<const std::uint8_t**>(frame->extended_data),
                                  frame->nb_samples);
    if (count > 0)
      sink(samples_.data(), static_cast<std::size_t>(count));
    torn_ = 0;
  }
}

bool Decoder::decode(const AVPacket& packet, const Sink& sink) {
  constexpr int too_many_torn = 500;
  ++torn_;
  (void)avcodec_send_packet(codec_.get(), &packet); // what it refuses gives no frame, which is counted
  receive(sink);
  return torn_ < too_many_torn;
}

void Decoder::flush(const Sink& sink) {
  (void)avcodec_send_packet(codec_.get(), nullptr);
  receive(sink);
}

void Decoder::compensate(int thousandths) {
  if (resampler_ != nullptr)
    (void)swr_set_compensation(resampler_.get(), -out_rate_ * thousandths / 1000, out_rate_);
}

} // namespace lumotune::media
