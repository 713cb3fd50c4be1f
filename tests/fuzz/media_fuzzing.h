// SPDX-License-Identifier: LGPL-2.1-or-later
// Bytes as a stream: opened and decoded as the engine does it, without a network.
#pragma once

#include "platform/media/decoder.h"
#include "platform/media/source.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/fuzz/virtual_time.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumotune::fuzz {

inline void start_media() {
  av_log_set_level(AV_LOG_QUIET);
  av_max_alloc(std::size_t{64} << 20U); // as the player does
}

inline void decode_some(media::Source& source) {
  constexpr int out_rate = 48000;
  constexpr int most_packets = 50;
  media::Decoder decoder(out_rate);
  (void)source.codec_name();
  demand(source.kbps() >= 0);
  if (!decoder.open(source.parameters()))
    return;
  const auto sink = [](const float* frames, std::size_t count) {
    demand(frames != nullptr && count > 0);
    return true;
  };
  const media::Packet packet(av_packet_alloc());
  for (int i = 0; i < most_packets; ++i) {
    const media::ReadResult read = source.read(*packet);
    if (read != media::ReadResult::packet && read != media::ReadResult::other)
      break;
    if (read == media::ReadResult::packet)
      (void)decoder.decode(*packet, sink);
    av_packet_unref(packet.get());
    (void)source.new_title();
  }
}

// `answer` is what an opening gets; nothing fails it.
using Answer = std::function<std::optional<std::string>(const std::string& address)>;

inline void play(const std::string& address, const Answer& answer) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(20);
  media::OpenBudget budget;
  media::SourceOptions options;
  options.budget = &budget;
  options.open_limit_ms = 5000;
  options.interrupted = [end] { return Clock::now() > end; };
  options.memory = [&](const std::string& named) {
    demand(named.find("://") != std::string::npos && named.find("file:") != 0);
    return answer(named);
  };
  const media::Opened opened = media::Source::open(address, options);
  demand(opened.source == nullptr || opened.trouble == media::Trouble::none);
  demand(opened.entries.size() <= media::max_playlist_entries);
  if (opened.source != nullptr)
    decode_some(*opened.source);
}

// `answers` are what the openings get, one after the other; further ones fail.
inline void play(const std::string& address, std::vector<std::string> answers) {
  std::size_t openings = 0;
  play(address, [&](const std::string&) {
    return openings < answers.size() ? std::optional(std::move(answers[openings++])) : std::nullopt;
  });
}

} // namespace lumotune::fuzz
