// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/source.h"

#include "platform/media/address.h"
#include "platform/media/playlist.h"
#include "platform/media/title.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace lumotune::media {
namespace {

using Clock = std::chrono::steady_clock;

class Dictionary {
public:
  Dictionary() = default;
  Dictionary(const Dictionary&) = delete;
  Dictionary& operator=(const Dictionary&) = delete;
  ~Dictionary() { av_dict_free(&entries_); }
  void set(const char* key, const std::string& value) { av_dict_set(&entries_, key, value.c_str(), 0); }
  [[nodiscard]] AVDictionary** out() { return &entries_; }

private:
  AVDictionary* entries_ = nullptr;
};

bool is_http(const std::string& address) {
  return address.starts_with("http");
}
bool is_file(const std::string& address) {
  return address.starts_with("file:");
}

// Windows' socket errors come through as negative numbers of its own.
Trouble trouble_of(int error, int& http_code) {
  switch (error) {
  case AVERROR_HTTP_NOT_FOUND:
    http_code = 404;
    return Trouble::not_found;
  case AVERROR(ENOENT):
    return Trouble::not_found;
  case AVERROR_HTTP_BAD_REQUEST:
    http_code = 400;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_UNAUTHORIZED:
    http_code = 401;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_FORBIDDEN:
    http_code = 403;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_OTHER_4XX:
    http_code = 400;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_SERVER_ERROR:
    http_code = 500;
    return Trouble::refused_by_server;
  case AVERROR_INVALIDDATA:
  case AVERROR_STREAM_NOT_FOUND:
  case AVERROR_DECODER_NOT_FOUND:
  case AVERROR_DEMUXER_NOT_FOUND:
  case AVERROR_EOF:
    return Trouble::unknown_format;
  case AVERROR_PROTOCOL_NOT_FOUND:
    return Trouble::unsupported_address;
  default:
    return Trouble::not_answering;
  }
}

} // namespace

struct Source::Watch {
  std::function<bool()> interrupted;
  Clock::time_point deadline = Clock::time_point::max();
  bool cancelled = false;

  static int check(void* self) {
    auto& watch = *static_cast<Watch*>(self);
    watch.cancelled = watch.cancelled || (watch.interrupted && watch.interrupted());
    return watch.cancelled || Clock::now() > watch.deadline ? 1 : 0;
  }
  [[nodiscard]] AVIOInterruptCB callback() { return {check, this}; }
};

Source::Source(const SourceOptions& options) : watch_(std::make_unique<Watch>()) {
  watch_->interrupted = options.interrupted;
  watch_->deadline = Clock::now() + std::chrono::milliseconds(options.open_limit_ms);
}

Source::~Source() = default;

Opened Source::open(const std::string& address, const SourceOptions& options) {
  Opened opened;
  if (options.budget != nullptr && !options.budget->take(address)) {
    opened.trouble = Trouble::unknown_format;
    return opened;
  }
  std::unique_ptr<Source> source(new Source(options));
  int error = 0;
  if (is_http(address) || is_file(address)) {
    Dictionary settings;
    settings.set("user_agent", options.user_agent);
    settings.set("icy", "1");
    const std::string time = std::to_string(static_cast<long long>(options.timeout_ms) * 1000);
    settings.set("timeout", time);
    settings.set("rw_timeout", time); // what an HLS list hands on to its segments
    settings.set("reconnect", "0");
    settings.set("protocol_whitelist",
                 is_file(address) ? "file,crypto" : "http,https,httpproxy,tcp,tls,crypto,data,hls");
    const std::string proxy = is_http(address) && options.proxy ? options.proxy(address) : std::string();
    if (!proxy.empty())
      settings.set("http_proxy", proxy);
    AVIOContext* io = nullptr;
    const AVIOInterruptCB callback = source->watch_->callback();
    error = avio_open2(&io, address.c_str(), AVIO_FLAG_READ, &callback, settings.out());
    source->io_.reset(io);
    if (error >= 0 && source->read_playlist(address, opened)) {
      opened.cancelled = source->watch_->cancelled;
      return opened;
    }
  }
  if (error >= 0)
    error = source->open_format(address, options);
  opened.cancelled = source->watch_->cancelled;
  if (error < 0) {
    opened.trouble = trouble_of(error, opened.http_code);
    return opened;
  }
  source->watch_->deadline = Clock::time_point::max();
  opened.source = std::move(source);
  return opened;
}

// True when the address is dealt with: it is a playlist. Else the bytes looked at are kept for the demuxer.
bool Source::read_playlist(const std::string& address, Opened& opened) {
  constexpr std::size_t look = 2048;
  std::string start;
  std::array<unsigned char, look> buffer{};
  PlaylistKind kind = PlaylistKind::none;
  while (start.size() < look) {
    const int got = avio_read_partial(io_.get(), buffer.data(), static_cast<int>(look - start.size()));
    if (got <= 0)
      break;
    start.append(reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(got));
    kind = playlist_kind(start, io_option("mime_type"), address);
    const bool binary = start.find_first_of(std::string_view("\0\1\2\3\4\5\6\7\xff", 9)) != std::string::npos;
    if (kind != PlaylistKind::none || binary)
      break;
  }
  if (kind == PlaylistKind::none) {
    seen_ = std::move(start);
    return false;
  }
  while (start.size() < max_playlist_bytes) {
    const int got = avio_read(io_.get(), buffer.data(), static_cast<int>(look));
    if (got <= 0)
      break;
    start.append(reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(got));
  }
  const std::string location = io_option("location");
  const std::string base = location.empty() ? address : location;
  for (const std::string& entry : playlist_entries(kind, start))
    opened.entries.push_back(resolve_address(base, entry));
  if (opened.entries.empty())
    opened.trouble = Trouble::unknown_format;
  return true;
}

int Source::open_format(const std::string& address, const SourceOptions& options) {
  AVFormatContext* context = avformat_alloc_context();
  if (context == nullptr)
    return AVERROR(ENOMEM);
  context->interrupt_callback = watch_->callback();
  context->pb = io_.get();
  // An HLS list is read from the connection itself, which hands its settings on to the segments.
  const bool hls = seen_.find("#EXT-X-") != std::string::npos;
  if (io_ != nullptr && !(hls && avio_seek(io_.get(), 0, SEEK_SET) == 0)) {
    feed_ = std::make_unique<Feed>(*io_, std::move(seen_));
    context->pb = feed_->context();
  }
  Dictionary settings;
  settings.set("formatprobesize", "16384"); // else an MP3 stream is probed for twice a server's burst
  settings.set("analyzeduration", "2000000");
  // An MP3 stream has no time stamps to wait for; by default fifty packets are read, more than a server's first burst.
  settings.set("max_ts_probe", "4");
  if (io_ == nullptr) {
    settings.set("user_agent", options.user_agent);
    settings.set("timeout", std::to_string(static_cast<long long>(options.timeout_ms) * 1000));
  }
  int error = avformat_open_input(&context, address.c_str(), nullptr, settings.out());
  if (error < 0)
    return error; // the context is gone; the connection is still ours
  input_.reset(context);
  error = avformat_find_stream_info(context, nullptr);
  if (error < 0)
    return error;
  stream_ = av_find_best_stream(context, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  if (stream_ < 0)
    return stream_;
  for (unsigned i = 0; i < context->nb_streams; ++i) {
    if (static_cast<int>(i) != stream_)
      context->streams[i]->discard = AVDISCARD_ALL;
  }
  live_ = !is_file(address) && (context->duration == AV_NOPTS_VALUE || io_ == nullptr || avio_size(io_.get()) <= 0);
  // What the headers gave counts as news.
  context->streams[stream_]->event_flags |= AVSTREAM_EVENT_FLAG_METADATA_UPDATED;
  return 0;
}

ReadResult Source::read(AVPacket& packet) {
  const int error = av_read_frame(input_.get(), &packet);
  if (error >= 0)
    return packet.stream_index == stream_ ? ReadResult::packet : ReadResult::other;
  if (watch_->cancelled)
    return ReadResult::cancelled;
  if (error == AVERROR(EAGAIN))
    return ReadResult::other;
  return error == AVERROR_EOF && !live_ ? ReadResult::ended : ReadResult::lost;
}

const AVCodecParameters& Source::parameters() const {
  return *input_->streams[stream_]->codecpar;
}

std::string Source::io_option(const char* name) const {
  std::uint8_t* value = nullptr;
  if (io_ == nullptr || av_opt_get(io_.get(), name, AV_OPT_SEARCH_CHILDREN, &value) < 0 || value == nullptr)
    return {};
  std::string text(reinterpret_cast<const char*>(value));
  av_free(value);
  return text;
}

// The block itself: FFmpeg's own cut ends a title at its first quotation mark and semicolon.
std::optional<std::wstring> Source::new_icy_title() {
  std::string block = io_option("icy_metadata_packet");
  if (block.empty() || block == icy_block_)
    return std::nullopt;
  icy_block_ = std::move(block);
  const auto title = icy_stream_title(icy_block_);
  return title ? std::optional(readable_text(*title)) : std::nullopt;
}

std::optional<std::wstring> Source::new_title() {
  if (auto title = new_icy_title())
    return title;
  AVStream* stream = input_->streams[stream_];
  if ((stream->event_flags & AVSTREAM_EVENT_FLAG_METADATA_UPDATED) == 0)
    return std::nullopt;
  stream->event_flags &= ~AVSTREAM_EVENT_FLAG_METADATA_UPDATED;
  const auto value = [&](const char* key) {
    const AVDictionaryEntry* entry = av_dict_get(stream->metadata, key, nullptr, 0);
    if (entry == nullptr)
      entry = av_dict_get(input_->metadata, key, nullptr, 0);
    return readable_text(entry == nullptr ? "" : entry->value);
  };
  const std::wstring artist = value("artist");
  std::wstring title = value("title");
  // A chained stream adds to what is there: the next title must not be glued to this one.
  av_dict_free(&stream->metadata);
  if (!artist.empty() && !title.empty())
    title = artist + L" - " + title;
  if (title.empty())
    return std::nullopt;
  return title;
}

std::wstring Source::codec_name() const {
  switch (parameters().codec_id) {
  case AV_CODEC_ID_MP3:
    return L"MP3";
  case AV_CODEC_ID_MP2:
    return L"MP2";
  case AV_CODEC_ID_AAC:
  case AV_CODEC_ID_AAC_LATM:
    return parameters().profile == FF_PROFILE_AAC_HE || parameters().profile == FF_PROFILE_AAC_HE_V2 ? L"HE-AAC"
                                                                                                     : L"AAC";
  case AV_CODEC_ID_VORBIS:
    return L"Vorbis";
  case AV_CODEC_ID_OPUS:
    return L"Opus";
  case AV_CODEC_ID_FLAC:
    return L"FLAC";
  case AV_CODEC_ID_WMAV1:
  case AV_CODEC_ID_WMAV2:
  case AV_CODEC_ID_WMAPRO:
  case AV_CODEC_ID_WMAVOICE:
  case AV_CODEC_ID_WMALOSSLESS:
    return L"WMA";
  case AV_CODEC_ID_AC3:
  case AV_CODEC_ID_EAC3:
    return L"AC3";
  case AV_CODEC_ID_ALAC:
    return L"ALAC";
  default:
    return av_get_exact_bits_per_sample(parameters().codec_id) > 0 ? L"PCM" : L"";
  }
}

// The station's own word first, as the listener chose by it.
int Source::icy_bit_rate() const {
  const std::string headers = io_option("icy_metadata_headers");
  const std::size_t at = headers.find("icy-br:");
  return at == std::string::npos ? 0 : std::atoi(headers.c_str() + at + 7);
}

int Source::kbps() const {
  constexpr int most = 20000;
  const int named = icy_bit_rate();
  if (named > 0 && named <= most)
    return named;
  const std::int64_t rate = parameters().bit_rate > 0 ? parameters().bit_rate : input_->bit_rate;
  return rate > 0 && rate <= most * 1000LL ? static_cast<int>((rate + 500) / 1000) : 0;
}

} // namespace lumotune::media
