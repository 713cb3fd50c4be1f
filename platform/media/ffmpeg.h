// SPDX-License-Identifier: LGPL-2.1-or-later
// FFmpeg's headers and owners of its objects; for this folder only.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libavutil/time.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace lumotune::media {

// One owning alias per kind of object.
struct FreePacket {
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FreeFrame {
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct FreeCodec {
  void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct FreeResampler {
  void operator()(SwrContext* context) const { swr_free(&context); }
};
struct CloseInput {
  void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};
struct CloseIo {
  void operator()(AVIOContext* context) const { avio_closep(&context); }
};
using Packet = std::unique_ptr<AVPacket, FreePacket>;
using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Codec = std::unique_ptr<AVCodecContext, FreeCodec>;
using Resampler = std::unique_ptr<SwrContext, FreeResampler>;
using Input = std::unique_ptr<AVFormatContext, CloseInput>;
using Io = std::unique_ptr<AVIOContext, CloseIo>;

} // namespace lumotune::media
