// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/feed.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lumotune::media {
namespace {

constexpr std::size_t tag_header = 10;

// The length of an ID3v2 tag including its header; 0 if there is none at this position.
std::size_t tag_length(const std::string& bytes, std::size_t at) {
  if (bytes.size() < at + tag_header || bytes.compare(at, 3, "ID3") != 0)
    return 0;
  const auto byte = [&](std::size_t i) { return static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + i])); };
  std::size_t length = 0;
  for (std::size_t i = 6; i < tag_header; ++i) {
    if (byte(i) > 0x7f)
      return 0;
    length = length << 7 | byte(i);
  }
  const std::size_t footer = (byte(5) & 0x10) != 0 ? tag_header : 0;
  return tag_header + length + footer;
}

} // namespace

std::string io_option(AVIOContext* connection, const char* name) {
  std::uint8_t* value = nullptr;
  if (connection == nullptr || av_opt_get(connection, name, AV_OPT_SEARCH_CHILDREN, &value) < 0 || value == nullptr)
    return {};
  std::string text(reinterpret_cast<const char*>(value));
  av_free(value);
  return text;
}

Feed::Feed(Watch& watch, Io connection, std::string peeked)
    : watch_(watch), connection_(std::move(connection)), peeked_(std::move(peeked)) {}

std::int64_t Feed::size() const {
  if (connection_ == nullptr)
    return static_cast<std::int64_t>(peeked_.size());
  return std::max<std::int64_t>(avio_size(connection_.get()), 0);
}

bool Feed::peek(std::size_t bytes) {
  while (peeked_.size() < bytes) {
    if (!peek_more(bytes))
      return false;
  }
  return true;
}

bool Feed::peek_more(std::size_t limit) {
  std::array<unsigned char, 4096> buffer;
  if (connection_ == nullptr || complete_ || peeked_.size() >= limit)
    return false;
  const std::size_t room = std::min(buffer.size(), limit - peeked_.size());
  const int got = avio_read_partial(connection_.get(), buffer.data(), static_cast<int>(room));
  if (got > 0)
    peeked_.append(reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(got));
  return got > 0;
}

void Feed::replace(std::string text) {
  peeked_ = std::move(text);
  complete_ = true;
}

// Skips that many bytes of the connection.
bool Feed::drop(std::size_t bytes) {
  if (bytes > 0 && connection_ == nullptr)
    return false;
  if (connection_ != nullptr && (connection_->seekable & AVIO_SEEKABLE_NORMAL) != 0)
    return avio_seek(connection_.get(), static_cast<std::int64_t>(bytes), SEEK_CUR) >= 0;
  std::array<unsigned char, 4096> buffer;
  while (bytes > 0) {
    const int got =
        avio_read_partial(connection_.get(), buffer.data(), static_cast<int>(std::min(bytes, buffer.size())));
    if (got <= 0)
      return false;
    bytes -= static_cast<std::size_t>(got);
  }
  return true;
}

// FFmpeg would read any number of tags and keep every value of each.
void Feed::skip_tags() {
  std::size_t kept = 0;
  while (!complete_) {
    (void)peek(kept + tag_header);
    const std::size_t length = tag_length(peeked_, kept);
    if (length == 0)
      return;
    if (kept == 0 && length <= max_tag_bytes) {
      if (!peek(length))
        return;
      kept = length;
      continue;
    }
    shortened_ = true;
    const std::size_t peeked_of_it = std::min(length, peeked_.size() - kept);
    peeked_.erase(kept, peeked_of_it);
    if (!drop(length - peeked_of_it))
      return;
  }
}

AVIOContext* Feed::context(bool with_options) {
  static const AVClass options_of_connection = [] {
    AVClass made{};
    made.class_name = "feed";
    made.item_name = av_default_item_name;
    made.version = LIBAVUTIL_VERSION_INT;
    made.child_next = child;
    return made;
  }();
  if (context_ != nullptr)
    return context_.get();
  constexpr int buffer_size = 4096; // small: a live stream should not wait for it to fill
  auto* buffer = static_cast<unsigned char*>(av_malloc(buffer_size));
  if (buffer == nullptr)
    return nullptr;
  const bool seekable =
      connection_ != nullptr && !complete_ && !shortened_ && (connection_->seekable & AVIO_SEEKABLE_NORMAL) != 0;
  context_.reset(avio_alloc_context(buffer, buffer_size, 0, this, read, nullptr, seekable ? seek : nullptr));
  if (context_ == nullptr) {
    av_free(buffer);
    return nullptr;
  }
  context_->seekable = seekable ? connection_->seekable : 0;
  if (with_options && connection_ != nullptr)
    context_->av_class = &options_of_connection;
  return context_.get();
}

void* Feed::child(void* context, void* previous) {
  return previous == nullptr ? of(*static_cast<AVIOContext*>(context))->connection() : nullptr;
}

int Feed::read(void* self, std::uint8_t* buffer, int size) {
  auto& feed = *static_cast<Feed*>(self);
  if (feed.given_ < feed.peeked_.size()) {
    const std::size_t count = std::min(static_cast<std::size_t>(size), feed.peeked_.size() - feed.given_);
    std::copy_n(feed.peeked_.data() + feed.given_, count, buffer);
    feed.given_ += count;
    return static_cast<int>(count);
  }
  if (feed.connection_ == nullptr || feed.complete_)
    return AVERROR_EOF;
  const int got = avio_read_partial(feed.connection_.get(), buffer, size);
  if (got > 0)
    feed.watch_.arrived = Watch::Clock::now();
  if (got != 0)
    return got;
  return feed.connection_->error < 0 ? feed.connection_->error : AVERROR_EOF;
}

std::int64_t Feed::seek(void* self, std::int64_t offset, int whence) {
  auto& feed = *static_cast<Feed*>(self);
  if ((whence & AVSEEK_SIZE) != 0)
    return avio_size(feed.connection_.get());
  feed.given_ = feed.peeked_.size(); // from now on the connection's own position counts
  return avio_seek(feed.connection_.get(), offset, whence & ~AVSEEK_FORCE);
}

} // namespace lumotune::media
