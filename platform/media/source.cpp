// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/source.h"

#include "platform/media/address.h"
#include "platform/media/dictionary.h"
#include "platform/media/reach.h"
#include "platform/media/title.h"
#include "platform/media/trouble.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string_view>
#include <utility>

namespace lumotune::media {
namespace {

using Clock = Watch::Clock;

bool is_file(const std::string& address) {
  return address.starts_with("file:");
}

} // namespace

Source::Source(const SourceOptions& options) : options_(options), io_(options, watch_) {
  watch_.interrupted = options.interrupted;
  watch_.deadline = Clock::now() + std::chrono::milliseconds(options.open_limit_ms);
  if (options.budget != nullptr)
    watch_.deadline = std::min(watch_.deadline, options.budget->deadline());
}

// Bounds the wait for a clean close of the connection.
Source::~Source() {
  watch_.deadline = Clock::now() + std::chrono::milliseconds(200);
}

Opened Source::open(const std::string& address, const SourceOptions& options) {
  Opened opened;
  std::unique_ptr<Source> source(new Source(options));
  int error = source->io_.open(address, source->feed_);
  const Kind kind = error >= 0 ? source->detect(address, opened) : Kind::sound;
  if (error >= 0 && opened.trouble == Trouble::none && (kind == Kind::sound || kind == Kind::hls))
    error = source->open_format(address, kind == Kind::hls);
  opened.cancelled = source->watch_.cancelled;
  opened.over_budget = source->io_.refused();
  opened.unverified = source->io_.unverified();
  // A list whose segments cannot be opened fails by their error.
  if (error < 0 && source->io_.last_error() < 0)
    error = source->io_.last_error();
  if (error < 0)
    opened.trouble = trouble_of(error, source->io_.report(), opened.http_code);
  opened.retry_after = source->io_.retry_after();
  if (error == AVERROR_EOF && source->feed_ == nullptr && opened.trouble == Trouble::unknown_format)
    opened.trouble = Trouble::not_answering; // the server closed without sending anything
  if (opened.over_budget || kind == Kind::refused)
    opened.trouble = Trouble::unknown_format;
  if (error >= 0 && opened.trouble == Trouble::none && (kind == Kind::sound || kind == Kind::hls))
    opened.source = std::move(source);
  return opened;
}

PlaylistKind Source::detect_playlist(const std::string& address) {
  constexpr std::size_t limit = 2048;
  const std::string type = feed_->option("mime_type");
  PlaylistKind kind = playlist_kind(feed_->peeked(), type, address);
  while (kind == PlaylistKind::none && feed_->peek_more(limit)) {
    kind = playlist_kind(feed_->peeked(), type, address);
    if (feed_->peeked().find_first_of(std::string_view("\0\1\2\3\4\5\6\7\xff", 9)) != std::string::npos)
      break;
  }
  return kind;
}

// Anything but a playlist is passed to the demuxer from its first byte.
Source::Kind Source::detect(const std::string& address, Opened& opened) {
  const PlaylistKind kind = detect_playlist(address);
  // A server may send a list line by line, and only the whole list tells HLS from plain M3U.
  const bool m3u = kind == PlaylistKind::m3u || begins_m3u(feed_->peeked());
  if (kind == PlaylistKind::none && !m3u) {
    feed_->skip_tags();
    return Kind::sound;
  }
  const bool all = !feed_->peek(m3u ? max_hls_list_bytes + 1 : max_playlist_bytes);
  const std::string location = feed_->option("location");
  const std::string base = location.empty() ? address : location;
  if (m3u && is_hls_list(feed_->peeked()))
    return all ? take_hls(base) : Kind::refused;
  for (const std::string& entry :
       playlist_entries(kind, std::string_view(feed_->peeked()).substr(0, max_playlist_bytes)))
    opened.entries.push_back(resolve_address(base, entry));
  return opened.entries.empty() ? Kind::refused : Kind::playlist;
}

Source::Kind Source::take_hls(const std::string& address) {
  auto list = read_hls_list(feed_->peeked(), address.size());
  if (!list)
    return Kind::refused;
  (void)io_.note(address, *list);
  feed_->replace(std::move(list->text));
  return Kind::hls;
}

int Source::open_format(const std::string& address, bool hls) {
  AVFormatContext* context = avformat_alloc_context();
  if (context == nullptr)
    return AVERROR(ENOMEM);
  // Relative addresses in a redirected list are relative to its final address.
  const std::string location = hls ? feed_->option("location") : std::string();
  const std::string base = location.empty() ? address : location;
  io_.attach(*context, base);
  context->pb = feed_->context(false);
  Dictionary settings;
  settings.set("protocol_whitelist", protocols_of(address));
  settings.set("format_whitelist", hls ? "hls" : sound_formats);
  settings.set("probesize", "2097152");
  settings.set("max_streams", "32");
  settings.set("formatprobesize", "16384"); // by default FFmpeg probes an MP3 stream for twice a server's burst
  settings.set("analyzeduration", "2000000");
  // MP3 streams have no time stamps to wait for; by default fifty packets are read, more than a server's first burst.
  settings.set("max_ts_probe", "4");
  if (hls) {
    // Requests on a kept connection would bypass our io_open.
    settings.set("http_persistent", "0");
    settings.set("http_multiple", "0");
    // A segment whose name ends otherwise would make a list fail while it is loaded again. What is read is bounded by
    // its format instead.
    settings.set("extension_picky", "0");
    settings.set("seg_format_options", "max_streams=32");
  }
  int error = context->pb == nullptr ? AVERROR(ENOMEM) : 0;
  if (error < 0)
    avformat_free_context(context);
  else
    error = avformat_open_input(&context, base.c_str(), hls ? av_find_input_format("hls") : nullptr, settings.out());
  if (error < 0)
    return error; // FFmpeg freed the context; the connection remains ours
  input_.reset(context);
  return find_sound(hls);
}

int Source::find_sound(bool hls) {
  AVFormatContext* context = input_.get();
  const int error = avformat_find_stream_info(context, nullptr);
  if (error < 0)
    return error;
  stream_ = av_find_best_stream(context, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  if (stream_ < 0)
    return stream_;
  for (unsigned i = 0; i < context->nb_streams; ++i) {
    if (static_cast<int>(i) != stream_)
      context->streams[i]->discard = AVDISCARD_ALL;
  }
  const bool endless = context->duration == AV_NOPTS_VALUE || (!hls && feed_->size() <= 0);
  live_ = endless && !is_file(io_.top());
  // The headers' metadata counts as a change.
  context->streams[stream_]->event_flags |= AVSTREAM_EVENT_FLAG_METADATA_UPDATED;
  patience_ = Patience(std::chrono::milliseconds(options_.timeout_ms) + std::chrono::seconds(io_.longest_target_s()));
  io_.found_sound();
  return 0;
}

ReadResult Source::read(AVPacket& packet) {
  const auto begin = Clock::now();
  watch_.deadline = begin + patience_.left();
  watch_.arrived = begin; // what came while nobody read is no silence
  reading_ = true;
  const int error = av_read_frame(input_.get(), &packet);
  reading_ = false;
  const auto waited = std::chrono::duration_cast<Patience::Time>(Clock::now() - begin);
  if (watch_.cancelled)
    return ReadResult::cancelled;
  const bool goes_on = patience_.waited(waited);
  if (error >= 0 && goes_on)
    return packet.stream_index == stream_ ? ReadResult::packet : ReadResult::other;
  if (error == AVERROR(EAGAIN) && goes_on && !watch_.over)
    return ReadResult::other;
  return error == AVERROR_EOF && !live_ && goes_on && !watch_.over ? ReadResult::ended : ReadResult::lost;
}

bool Source::stalled() const {
  return reading_ && Clock::now() - watch_.arrived >= patience_.stall();
}

const AVCodecParameters& Source::parameters() const {
  return *input_->streams[stream_]->codecpar;
}

// Parses the raw block: FFmpeg's own parser ends a title at its first quotation mark and semicolon. A block that begins
// with a zero byte is empty here, and still a new one.
std::optional<std::wstring> Source::new_icy_title() {
  std::string block = feed_->option("icy_metadata_packet");
  if (block == icy_block_)
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
  // A chained stream appends to existing entries, which would concatenate titles.
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

// The announced bit rate takes precedence: listeners choose by it.
int Source::icy_bit_rate() const {
  const std::string headers = feed_->option("icy_metadata_headers");
  constexpr std::string_view name = "icy-br:";
  const std::size_t at = headers.find(name);
  const std::size_t first = at == std::string::npos ? at : headers.find_first_not_of(" \t", at + name.size());
  int value = 0;
  if (first != std::string::npos)
    (void)std::from_chars(headers.data() + first, headers.data() + headers.size(), value); // 0 without a number
  return value;
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
