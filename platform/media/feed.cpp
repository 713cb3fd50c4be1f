// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/feed.h"

#include <algorithm>
#include <utility>

namespace lumotune::media {

Feed::Feed(AVIOContext& connection, std::string seen) : connection_(connection), seen_(std::move(seen)) {
  constexpr int buffer_size = 4096; // small: a live stream should not wait for a large one to fill
  auto* buffer = static_cast<unsigned char*>(av_malloc(buffer_size));
  if (buffer == nullptr)
    return;
  const bool seekable = (connection_.seekable & AVIO_SEEKABLE_NORMAL) != 0;
  context_.reset(avio_alloc_context(buffer, buffer_size, 0, this, read, nullptr, seekable ? seek : nullptr));
  if (context_ == nullptr)
    av_free(buffer);
  else
    context_->seekable = connection_.seekable;
}

int Feed::read(void* self, std::uint8_t* buffer, int size) {
  auto& feed = *static_cast<Feed*>(self);
  if (feed.given_ < feed.seen_.size()) {
    const std::size_t count = std::min(static_cast<std::size_t>(size), feed.seen_.size() - feed.given_);
    std::copy_n(feed.seen_.data() + feed.given_, count, buffer);
    feed.given_ += count;
    return static_cast<int>(count);
  }
  const int got = avio_read_partial(&feed.connection_, buffer, size);
  if (got > 0)
    return got;
  if (got < 0)
    return got;
  return feed.connection_.error < 0 ? feed.connection_.error : AVERROR_EOF;
}

std::int64_t Feed::seek(void* self, std::int64_t offset, int whence) {
  auto& feed = *static_cast<Feed*>(self);
  if ((whence & AVSEEK_SIZE) != 0)
    return avio_size(&feed.connection_);
  feed.given_ = feed.seen_.size(); // from now on the connection itself knows the place
  return avio_seek(&feed.connection_, offset, whence & ~AVSEEK_FORCE);
}

} // namespace lumotune::media
