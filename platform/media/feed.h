// SPDX-License-Identifier: LGPL-2.1-or-later
// A connection as read by FFmpeg's demuxers: the first bytes can be peeked at, and oversized tags are skipped. Worker
// thread.
#pragma once

#include "platform/media/ffmpeg.h"
#include "platform/media/watch.h"

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

// An option of a connection or of a layer below it ("mime_type", "location"); empty when not set.
[[nodiscard]] std::string io_option(AVIOContext* connection, const char* name);

class Feed {
public:
  static constexpr std::size_t max_tag_bytes = 4 * 1024 * 1024; // a title and a picture; larger tags are skipped

  // Owns the connection; without one, `peeked` is the whole content. `watch` must outlive it.
  Feed(Watch& watch, Io connection, std::string peeked = {});
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;
  ~Feed() = default;

  [[nodiscard]] AVIOContext* connection() const { return connection_.get(); }
  [[nodiscard]] std::string option(const char* name) const { return io_option(connection(), name); }

  [[nodiscard]] std::int64_t size() const; // in bytes; 0 if unknown

  // Call the next four before `context`.
  // Buffers that many bytes; false when the connection ends earlier.
  bool peek(std::size_t bytes);
  // Buffers at least one more byte of what has arrived, up to `limit` bytes in total; false when none arrives.
  [[nodiscard]] bool peek_more(std::size_t limit);
  [[nodiscard]] const std::string& peeked() const { return peeked_; }
  // Makes the demuxer read that text instead of the connection.
  void replace(std::string text);
  // Skips the ID3v2 tags before the audio, except the first one if it is within `max_tag_bytes`.
  void skip_tags();

  // The context a demuxer reads from, created by the first call; nullptr when out of memory. The connection's options
  // are hidden from it unless requested: servers misreport the content type, and FFmpeg would trust it over the bytes.
  [[nodiscard]] AVIOContext* context(bool with_options);
  // The feed that owns that context.
  [[nodiscard]] static Feed* of(const AVIOContext& context) { return static_cast<Feed*>(context.opaque); }

private:
  static int read(void* self, std::uint8_t* buffer, int size);
  static std::int64_t seek(void* self, std::int64_t offset, int whence);
  static void* child(void* context, void* previous);
  [[nodiscard]] bool drop(std::size_t bytes);

  Watch& watch_;
  Io connection_;
  std::string peeked_;
  std::size_t given_ = 0;
  bool complete_ = false;  // `peeked_` is the whole content
  bool shortened_ = false; // skipped tags: offsets in the connection and in the context differ
  std::unique_ptr<AVIOContext, FreeFeedContext> context_;
};

} // namespace lumotune::media
