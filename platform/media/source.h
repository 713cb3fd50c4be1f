// SPDX-License-Identifier: LGPL-2.1-or-later
// One open stream: its audio packets, title and properties. Worker thread.
#pragma once

#include "platform/media/feed.h"
#include "platform/media/ffmpeg.h"
#include "platform/media/io_open.h"
#include "platform/media/packet_source.h"
#include "platform/media/patience.h"
#include "platform/media/playlist.h"
#include "platform/media/source_options.h"
#include "platform/media/stream_status.h"
#include "platform/media/watch.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::media {

class Source;

// The result of opening an address: a stream, a playlist, or why it failed.
struct Opened {
  std::unique_ptr<Source> source;
  std::vector<std::string> entries; // of a playlist; absolute
  Trouble trouble = Trouble::none;
  int http_code = 0;
  std::optional<std::chrono::seconds> retry_after; // as the server asks
  bool cancelled = false;
  bool unverified = false;  // the server's certificate is invalid; it plays anyway
  bool over_budget = false; // the attempt must end
};

class Source final : public PacketSource {
public:
  // Opens an address as returned by `openable_addresses`.
  [[nodiscard]] static Opened open(const std::string& address, const SourceOptions& options);

  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source() override;

  [[nodiscard]] ReadResult read(AVPacket& packet) override;
  [[nodiscard]] bool stalled() const override;
  void brought(Patience::Time sound) override { patience_.brought(sound); }
  [[nodiscard]] const AVCodecParameters& parameters() const override;
  [[nodiscard]] std::optional<std::wstring> new_title() override;
  [[nodiscard]] std::wstring codec_name() const override;
  [[nodiscard]] int kbps() const override;
  [[nodiscard]] bool live() const override { return live_; }
  [[nodiscard]] bool unverified() const override { return io_.unverified(); }

private:
  enum class Kind { sound, playlist, hls, refused };

  explicit Source(const SourceOptions& options);
  [[nodiscard]] Kind detect(const std::string& address, Opened& opened);
  [[nodiscard]] PlaylistKind detect_playlist(const std::string& address);
  [[nodiscard]] Kind take_hls(const std::string& address);
  [[nodiscard]] int open_format(const std::string& address, bool hls);
  [[nodiscard]] int find_sound(bool hls);
  [[nodiscard]] std::optional<std::wstring> new_icy_title();
  [[nodiscard]] int icy_bit_rate() const;

  SourceOptions options_;
  Watch watch_; // outlives the objects below, which call into it
  IoOpen io_;
  std::unique_ptr<Feed> feed_; // what the demuxer reads
  Input input_;
  Patience patience_;
  bool reading_ = false;
  int stream_ = -1;
  bool live_ = true;
  std::string icy_block_; // the last one, to detect a new one
};

} // namespace lumotune::media
