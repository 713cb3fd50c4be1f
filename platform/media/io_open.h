// SPDX-License-Identifier: LGPL-2.1-or-later
// Everything FFmpeg opens for a stream, including nested openings, goes through here, with limits on reach, number,
// rate, time and size. Worker thread.
#pragma once

#include "platform/media/feed.h"
#include "platform/media/hls_list.h"
#include "platform/media/open_pace.h"
#include "platform/media/open_report.h"
#include "platform/media/source_options.h"
#include "platform/media/watch.h"

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace lumotune::media {

class IoOpen {
public:
  // `watch` and the budget must outlive it; it must outlive the contexts it is attached to.
  IoOpen(const SourceOptions& options, Watch& watch) : options_(options), watch_(watch) {}
  IoOpen(const IoOpen&) = delete;
  IoOpen& operator=(const IoOpen&) = delete;
  ~IoOpen() = default;

  // Opens the stream itself. 0 or FFmpeg's error; AVERROR_PROTOCOL_NOT_FOUND for an address it may not reach.
  [[nodiscard]] int open(const std::string& address, std::unique_ptr<Feed>& feed);
  // From now on the context opens everything through here; `address` decides what the stream may refer to.
  void attach(AVFormatContext& context, const std::string& address);
  [[nodiscard]] const std::string& top() const { return top_; }
  // Records a list that was read elsewhere. False when it has stopped advancing.
  [[nodiscard]] bool note(const std::string& address, const HlsList& list) { return progress_.note(address, list); }
  // From now on openings are limited by rate instead of number.
  void found_sound() { options_.budget = nullptr; }

  // A server with an invalid certificate was used.
  [[nodiscard]] bool unverified() const { return unverified_; }
  // The attempt must end: its budget is used up.
  [[nodiscard]] bool refused() const { return refused_; }
  // Details of the last opening that failed, and its error; 0 if all succeeded.
  [[nodiscard]] const OpenReport& report() const { return report_; }
  [[nodiscard]] int last_error() const { return last_error_; }
  // How long a server that answered 429 or 503 wants to be left alone; nothing if it does not say.
  [[nodiscard]] std::optional<std::chrono::seconds> retry_after() const { return retry_after_; }
  [[nodiscard]] int longest_target_s() const { return progress_.longest_target_s(); }

private:
  struct Request {
    std::string address;
    const AVDictionary* given = nullptr; // by the demuxer
    bool nested = false;
  };

  static int open_nested(AVFormatContext* context, AVIOContext** made, const char* address, int flags,
                         AVDictionary** given);
  static int close_nested(AVFormatContext* context, AVIOContext* made);
  [[nodiscard]] int open_nested(AVIOContext** made, const Request& request);
  [[nodiscard]] bool may_open(const Request& request);
  [[nodiscard]] bool wait_for_turn(const std::string& address);
  [[nodiscard]] int make_feed(const Request& request, std::unique_ptr<Feed>& feed);
  [[nodiscard]] int connect(const Request& request, Io& connection);
  [[nodiscard]] int connect(const Request& request, bool verified, Io& connection);
  [[nodiscard]] std::string proxy_of(const std::string& address);
  [[nodiscard]] bool read_list(const std::string& address, Feed& feed);
  void ask_retry_after(const std::string& address);
  void keep_cookies(const std::string& address, AVIOContext& connection);

  SourceOptions options_;
  Watch& watch_;
  std::string top_;
  OpenPace pace_;
  HlsProgress progress_;
  int reloads_ = 0;
  OpenReport report_;
  int last_error_ = 0;
  std::optional<std::chrono::seconds> retry_after_;
  bool unverified_ = false;
  bool refused_ = false;
  std::set<std::string> unverified_hosts_;
  std::map<std::string, std::string> proxies_; // by host: querying the system is slow
  std::string cookies_;                        // of that host alone
  std::string cookie_host_;
};

// The only demuxers we use, whatever else this FFmpeg has; HLS is added for the list itself only.
inline constexpr const char* sound_formats = "mp3,aac,ogg,flac,asf,mpegts,mov,wav,w64,aiff,matroska,ac3,eac3";

} // namespace lumotune::media
