// SPDX-License-Identifier: LGPL-2.1-or-later
// One opened stream: packets of its sound, its title and its qualities. Worker thread.
#pragma once

#include "platform/media/feed.h"
#include "platform/media/ffmpeg.h"
#include "platform/media/open_budget.h"
#include "platform/media/status_text.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::media {

struct SourceOptions {
  std::string user_agent;
  std::function<std::string(const std::string& address)> proxy; // "http://host:port", or empty; may be unset
  // Called often while FFmpeg waits; true makes it give up.
  std::function<bool()> interrupted;
  // Whether the address comes from the network or from a file of stations: then nothing of this machine is opened.
  bool from_network = true;
  OpenBudget* budget = nullptr; // of this try, taken from for every opening until sound is found; unset: no limit
  int timeout_ms = 10000;       // without a byte
  int open_limit_ms = 25000;    // for all of opening, whatever trickles in
};

class Source;

// What became of an address.
struct Opened {
  std::unique_ptr<Source> source;
  std::vector<std::string> entries; // it was a playlist; they are absolute
  Trouble trouble = Trouble::none;
  int http_code = 0;
  bool cancelled = false;
  bool unverified = false; // the server's certificate is bad; it plays all the same
};

enum class ReadResult { packet, other, ended, lost, cancelled };

class Source {
public:
  // Opens an address as `openable_addresses` gives it.
  [[nodiscard]] static Opened open(const std::string& address, const SourceOptions& options);

  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source();

  // The next packet of the sound; `other` for one that is not of it.
  [[nodiscard]] ReadResult read(AVPacket& packet);
  [[nodiscard]] const AVCodecParameters& parameters() const;
  // The title, when it changed since the last question.
  [[nodiscard]] std::optional<std::wstring> new_title();
  [[nodiscard]] std::wstring codec_name() const;
  [[nodiscard]] int kbps() const;
  [[nodiscard]] bool live() const { return live_; } // no end is in sight

private:
  struct Watch;

  explicit Source(const SourceOptions& options);
  [[nodiscard]] int open_io(const std::string& address);
  [[nodiscard]] bool read_playlist(const std::string& address, Opened& opened);
  [[nodiscard]] int open_format(const std::string& address, const SourceOptions& options);
  [[nodiscard]] std::optional<std::wstring> new_icy_title();
  [[nodiscard]] int icy_bit_rate() const;
  [[nodiscard]] std::string io_option(const char* name) const;

  std::unique_ptr<Watch> watch_; // outlives the objects below, which call into it
  Io io_;
  std::unique_ptr<Feed> feed_; // what the demuxer reads where the first bytes were looked at
  std::string seen_;           // those bytes
  Input input_;
  int stream_ = -1;
  bool live_ = true;
  std::string icy_block_; // the last one, to tell a new one by
};

} // namespace lumotune::media
