// SPDX-License-Identifier: LGPL-2.1-or-later
// HLS lists, before FFmpeg sees them: text from a server that is not to be trusted. Pure.
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
inline constexpr int max_hls_variants = 8;                    // further ones are cut
inline constexpr std::size_t max_hls_maps = 64;               // initialization sections in one list
inline constexpr std::size_t max_hls_cost = 32 * 1024 * 1024; // about what FFmpeg takes in memory for one list

struct HlsList {
  bool media = false;       // it names sound, not only further lists
  bool ended = false;       // no more will come
  int target_s = 0;         // target duration, within 1 to 10; 0 for a list of lists
  std::uint64_t digest = 0; // of what it names: another one means that the list went on
  std::string text;         // what FFmpeg may read
};

// Whether a text begins like one of the two kinds of M3U.
[[nodiscard]] bool begins_m3u(std::string_view text);
// Whether a text is an HLS list and no plain M3U. All of the text is needed to tell.
[[nodiscard]] bool is_hls_list(std::string_view text);

// None for a list over a limit. `base` is the length of its address, which FFmpeg puts before relative ones.
[[nodiscard]] std::optional<HlsList> read_hls_list(std::string_view text, std::size_t base);

// Tells of live lists, by their addresses, when they stand still.
class HlsProgress {
public:
  using Clock = std::chrono::steady_clock;

  // After each loading. False when the list has been the same for three target durations.
  [[nodiscard]] bool note(const std::string& address, const HlsList& list, Clock::time_point now = Clock::now());
  [[nodiscard]] bool knows(const std::string& address) const { return lists_.contains(address); } // a list of sound
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
