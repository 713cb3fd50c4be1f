// SPDX-License-Identifier: LGPL-2.1-or-later
// Validates HLS playlists (RFC 8216) and writes them anew before FFmpeg parses them: untrusted text from a server.
// Pure.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::media {

inline constexpr std::size_t max_hls_list_bytes = 1024 * 1024;
inline constexpr std::size_t max_hls_variants = 8;            // further ones are dropped, renditions as well
inline constexpr std::size_t max_hls_maps = 64;               // initialization sections in one list
inline constexpr std::size_t max_hls_cost = 32 * 1024 * 1024; // estimate of FFmpeg's memory for one list

struct HlsList {
  bool media = false;       // a media playlist, not a master playlist
  bool ended = false;       // no segments will be added
  int target_s = 0;         // target duration, clamped to 1 to 10; 0 for a master playlist
  std::uint64_t digest = 0; // of its segments: changes when the list advances
  bool segments = false;    // it has some
  bool choices = false;     // it has variants or renditions
  std::string text;         // for FFmpeg, written anew: only tags that it needs, from their parsed values

  // Required of nested and reloaded lists: FFmpeg reads from each variant and rendition that it knows, also from one
  // that it never opened, or could not open because it has no segments; both are null pointers.
  [[nodiscard]] bool only_segments() const { return segments && !choices; }
};

// Whether a text starts like an M3U, HLS or plain.
[[nodiscard]] bool begins_m3u(std::string_view text);
// Whether a text is an HLS list rather than a plain M3U. Needs the whole text.
[[nodiscard]] bool is_hls_list(std::string_view text);

// Nothing for a list that exceeds a limit, has segments as well as choices, or is encrypted otherwise than with
// AES-128. `base` is the length of its address, which FFmpeg prepends to relative ones.
[[nodiscard]] std::optional<HlsList> read_hls_list(std::string_view text, std::size_t base);

// Detects live lists that have stopped advancing, by their addresses.
class HlsProgress {
public:
  using Clock = std::chrono::steady_clock;

  // After each load. False when the list has not advanced for three target durations.
  [[nodiscard]] bool note(const std::string& address, const HlsList& list, Clock::time_point now = Clock::now());
  [[nodiscard]] bool knows(const std::string& address) const { return lists_.contains(address); } // a media playlist
  [[nodiscard]] int longest_target_s() const { return longest_target_s_; }                        // 0 when none is live

private:
  struct State {
    std::uint64_t digest = 0;
    Clock::time_point changed;
  };
  std::map<std::string, State> lists_;
  int longest_target_s_ = 0;
};

} // namespace lumotune::media
