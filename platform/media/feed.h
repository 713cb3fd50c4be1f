// SPDX-License-Identifier: LGPL-2.1-or-later
// A connection as FFmpeg's demuxers read it: its first bytes looked at before, what is too large left out. Worker
// thread.
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

// The text of an option of a connection or of what it rests on ("mime_type", "location"); empty where there is none.
[[nodiscard]] std::string io_option(AVIOContext* connection, const char* name);

class Feed {
public:
  static constexpr std::size_t max_tag_bytes = 4 * 1024 * 1024; // a title and a picture; larger tags are left out

  // Owns the connection; without one, what was seen is all there is.
  explicit Feed(Io connection, std::string seen = {});
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;
  ~Feed() = default;

  [[nodiscard]] AVIOContext* connection() const { return connection_.get(); }
  [[nodiscard]] std::string option(const char* name) const { return io_option(connection(), name); }

  [[nodiscard]] std::int64_t size() const; // 0 where it is not known

  // The next four until a context is made.
  // Reads until that much was seen; false when no more comes before.
  bool look(std::size_t bytes);
  // What came by now and fits into that much, at least one byte more; false when none comes.
  [[nodiscard]] bool look_further(std::size_t most);
  [[nodiscard]] const std::string& seen() const { return seen_; }
  // Gives that text, and nothing more of the connection.
  void replace(std::string text);
  // Leaves out the tags before the sound but for the first, when that one is not too large.
  void skip_tags();

  // What a demuxer reads; nullptr when there was no memory. Made by the first call. The connection's options are hidden
  // unless they are asked for: servers lie about the content type, and FFmpeg would believe it more than the bytes.
  [[nodiscard]] AVIOContext* context(bool with_options);
  // The feed whose context that is.
  [[nodiscard]] static Feed* of(const AVIOContext& context) { return static_cast<Feed*>(context.opaque); }

private:
  static int read(void* self, std::uint8_t* buffer, int size);
  static std::int64_t seek(void* self, std::int64_t offset, int whence);
  static void* child(void* context, void* previous);
  [[nodiscard]] bool drop(std::size_t bytes);

  Io connection_;
  std::string seen_;
  std::size_t given_ = 0;
  bool complete_ = false;  // what was seen is all there is
  bool shortened_ = false; // places in the connection are not places in the context
  std::unique_ptr<AVIOContext, FreeFeedContext> context_;
};

} // namespace lumotune::media
