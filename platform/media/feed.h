// SPDX-License-Identifier: LGPL-2.1-or-later
// A connection whose first bytes were already looked at, for the demuxer to read from the start. Worker thread.
#pragma once

#include "platform/media/ffmpeg.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace lumotune::media {

struct FreeFeedContext {
  void operator()(AVIOContext* context) const {
    av_freep(&context->buffer);
    avio_context_free(&context);
  }
};

// Gives the bytes back, then reads on. It hides the content type, too: servers lie about it, and the demuxer would
// believe them more than the bytes.
class Feed {
public:
  Feed(AVIOContext& connection, std::string seen);
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;
  ~Feed() = default;

  [[nodiscard]] AVIOContext* context() const { return context_.get(); } // nullptr when there was no memory

private:
  static int read(void* self, std::uint8_t* buffer, int size);
  static std::int64_t seek(void* self, std::int64_t offset, int whence);

  AVIOContext& connection_;
  std::string seen_;
  std::size_t given_ = 0;
  std::unique_ptr<AVIOContext, FreeFeedContext> context_;
};

} // namespace lumotune::media
