// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/io_open.h"

#include "platform/media/dictionary.h"
#include "platform/media/reach.h"
#include "platform/media/reply_head.h"
#include "platform/media/retry_after.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>
#include <utility>

namespace lumotune::media {
namespace {

// The only options that a demuxer may set for a nested opening.
constexpr std::array<const char*, 5> demuxers_own = {"offset", "end_offset", "key", "iv", "seekable"};

// FFmpeg's TLS backends report an invalid certificate like any other handshake failure.
bool may_be_certificate(int error) {
  return error == AVERROR(EIO) || error == AVERROR_UNKNOWN;
}

std::string text_of(const AVDictionary* dictionary, const char* key) {
  const AVDictionaryEntry* entry = av_dict_get(dictionary, key, nullptr, 0);
  return entry == nullptr ? "" : entry->value;
}

} // namespace

int IoOpen::open(const std::string& address, std::unique_ptr<Feed>& feed) {
  const Request request{address};
  if (reach_of(address, options_.from_network) == Reach::nothing)
    return AVERROR_PROTOCOL_NOT_FOUND;
  if (!may_open(request))
    return AVERROR(EIO);
  return make_feed(request, feed);
}

int IoOpen::make_feed(const Request& request, std::unique_ptr<Feed>& feed) {
  if (options_.memory) {
    auto bytes = options_.memory(request.address);
    if (bytes)
      feed = std::make_unique<Feed>(watch_, nullptr, std::move(*bytes));
    return bytes ? 0 : AVERROR(EIO);
  }
  Io connection;
  const int error = connect(request, connection);
  if (error < 0) {
    last_error_ = error;
    if (!request.nested && (report_.http_code == 429 || report_.http_code == 503))
      ask_retry_after(request.address);
    return error;
  }
  keep_cookies(request.address, *connection);
  feed = std::make_unique<Feed>(watch_, std::move(connection));
  return 0;
}

void IoOpen::attach(AVFormatContext& context, const std::string& address) {
  top_ = address;
  context.opaque = this;
  context.io_open = open_nested;
  context.io_close2 = close_nested;
  context.interrupt_callback = watch_.callback();
}

bool IoOpen::may_open(const Request& request) {
  if (options_.budget == nullptr)
    return true;
  // Only live lists may be loaded more than once.
  std::string counted = request.address + text_of(request.given, "offset");
  if (progress_.knows(request.address))
    counted += " again " + std::to_string(++reloads_);
  refused_ = refused_ || !options_.budget->take(counted);
  watch_.over = watch_.over || refused_;
  return !refused_;
}

bool IoOpen::wait_for_turn(const std::string& address) {
  const auto turn = pace_.turn(address);
  while (OpenPace::Clock::now() < turn) {
    if (watch_.stops())
      return false;
    (void)av_usleep(20000); // FFmpeg polls for a list in the same way
  }
  return true;
}

std::string IoOpen::proxy_of(const std::string& address) {
  const std::string_view plain = without_crypto(address);
  if (!options_.proxy || !plain.starts_with("http"))
    return {};
  const auto [at, added] = proxies_.try_emplace(std::string(plain.substr(0, plain.find(':'))) + host_of(plain));
  if (added)
    at->second = options_.proxy(std::string(plain));
  return at->second;
}

// A station with an invalid certificate still plays, as it would over plain http. But the server is unverified, so it
// gets neither credentials nor cookies.
int IoOpen::connect(const Request& request, Io& connection) {
  const std::string host = host_of(request.address);
  int error = AVERROR(EIO);
  if (!unverified_hosts_.contains(host)) {
    error = connect(request, true, connection);
    const bool http = without_crypto(request.address).starts_with("http");
    if (error >= 0 || !http || !may_be_certificate(error) || report_.no_such_host || watch_.stops())
      return error;
  }
  const Request bare{without_credentials(request.address), request.given, request.nested};
  if (connect(bare, false, connection) < 0)
    return error;
  const std::string arrived = io_option(connection.get(), "location");
  if (!without_crypto(request.address).starts_with("https:") && !arrived.starts_with("https:"))
    return 0; // no TLS involved: the first attempt failed for another reason
  unverified_ = true;
  unverified_hosts_.insert(host);
  return 0;
}

int IoOpen::connect(const Request& request, bool verified, Io& connection) {
  Dictionary settings;
  for (const char* key : demuxers_own) {
    if (const std::string value = text_of(request.given, key); !value.empty())
      settings.set(key, value);
  }
  const std::string time = std::to_string(static_cast<long long>(options_.timeout_ms) * 1000);
  settings.set("user_agent", options_.user_agent);
  settings.set("icy", request.nested ? "0" : "1");
  settings.set("timeout", time);
  settings.set("rw_timeout", time);
  settings.set("reconnect", "0");
  settings.set("max_redirects", "8");
  settings.set("protocol_whitelist", protocols_of(request.address));
  settings.set("tls_verify", verified ? "1" : "0");
  if (!options_.ca_file.empty())
    settings.set("ca_file", options_.ca_file);
  if (const std::string proxy = proxy_of(request.address); !proxy.empty())
    settings.set("http_proxy", proxy);
  if (verified && !cookies_.empty() && cookie_host_ == host_of(request.address))
    settings.set("cookies", cookies_);
  AVIOContext* made = nullptr;
  const AVIOInterruptCB callback = watch_.callback();
  const OpenRecorder recorder(report_);
  const int error = avio_open2(&made, request.address.c_str(), AVIO_FLAG_READ, &callback, settings.out());
  connection.reset(made);
  return error;
}

// FFmpeg reads no further than an error page's first line, so its fields cost a request of their own: only for codes
// that tell clients to come back later, and not through a proxy.
void IoOpen::ask_retry_after(const std::string& address) {
  constexpr int longest_ms = 3000;
  if (!options_.ask_retry_after || reach_of(address, true) != Reach::http || !proxy_of(address).empty() ||
      watch_.stops() || (options_.budget != nullptr && !options_.budget->take("reply of " + address)))
    return;
  ReplyOptions options;
  options.user_agent = options_.user_agent;
  options.ca_file = options_.ca_file;
  options.verified = !unverified_hosts_.contains(host_of(address));
  options.timeout_ms = std::min(options_.timeout_ms, longest_ms);
  retry_after_ = media::retry_after(reply_head(address, options, watch_.callback()),
                                    std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()));
}

// Some stations serve segments only with the cookies of their list.
void IoOpen::keep_cookies(const std::string& address, AVIOContext& connection) {
  constexpr std::size_t most = 8192;
  const std::string host = host_of(address);
  std::string cookies = io_option(&connection, "cookies");
  const bool redirected = host_of(io_option(&connection, "location")) != host;
  if (cookies.empty() || cookies.size() > most || redirected || unverified_hosts_.contains(host))
    return;
  cookies_ = std::move(cookies);
  cookie_host_ = host;
}

// Called by FFmpeg, which is C: no exception may pass through it.
int IoOpen::open_nested(AVFormatContext* context, AVIOContext** made, const char* address, int flags,
                        AVDictionary** given) {
  auto& self = *static_cast<IoOpen*>(context->opaque);
  if ((flags & AVIO_FLAG_WRITE) != 0 || !may_name(self.top_, address))
    return AVERROR(EPERM);
  // The list itself is already open. What it refers to must be audio: a nested list's size would be unbounded.
  if (av_opt_set(context, "format_whitelist", sound_formats, 0) < 0)
    return AVERROR(ENOMEM);
  try {
    return self.open_nested(made, {address, given == nullptr ? nullptr : *given, true});
  } catch (const std::exception&) {
    return AVERROR(ENOMEM);
  }
}

int IoOpen::open_nested(AVIOContext** made, const Request& request) {
  if (watch_.stops() || !may_open(request) || !wait_for_turn(request.address))
    return AVERROR_EXIT;
  std::unique_ptr<Feed> feed;
  const int error = make_feed(request, feed);
  if (error < 0)
    return error;
  feed->skip_tags(); // first: FFmpeg reads on behind them, and may find a list there
  if (!read_list(request.address, *feed))
    return AVERROR_INVALIDDATA;
  *made = feed->context(true);
  if (*made == nullptr)
    return AVERROR(ENOMEM);
  (void)feed.release(); // owned by FFmpeg until it closes it
  return 0;
}

// Reads and validates a whole list before FFmpeg gets it. False when it exceeds a limit, is not one of segments alone
// or has stopped advancing.
bool IoOpen::read_list(const std::string& address, Feed& feed) {
  constexpr std::string_view mark = "#EXTM3U";
  if (!feed.peek(mark.size()) || !feed.peeked().starts_with(mark))
    return true;
  if (feed.peek(max_hls_list_bytes + 1))
    return false;
  auto list = read_hls_list(feed.peeked(), address.size());
  if (!list || !list->only_segments() || watch_.stops())
    return false;
  if (!progress_.note(address, *list)) {
    watch_.over = true;
    return false;
  }
  feed.replace(std::move(list->text));
  return true;
}

int IoOpen::close_nested(AVFormatContext* /*context*/, AVIOContext* made) {
  if (made != nullptr)
    delete Feed::of(*made);
  return 0;
}

} // namespace lumotune::media
