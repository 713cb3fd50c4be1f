// SPDX-License-Identifier: LGPL-2.1-or-later
// The engine's worker, decoder, buffer and mixer on a clock stepped by hand: hours of a station with a fault every few
// minutes pass in seconds. The station's and the device's clocks drift; only the network and the sound system are
// played.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace lumotune::media::soak {

struct Settings {
  std::map<std::string, std::string> sound; // file name: content; each one is a station
  int minutes = 20;                         // simulated
  int sample_minutes = 10;
  int shortest_pause_s = 120; // between faults
  int longest_pause_s = 300;
  int piece_ms = 100; // the station's sound arrives in pieces of that length
  unsigned seed = 1;
};

// Of one stretch of simulated time. Levels are of the buffer, in milliseconds, while sound flows without a fault.
struct Sample {
  int minute = 0; // at its end
  std::uint32_t lowest_ms = 0;
  std::uint32_t mean_ms = 0;
  std::uint32_t highest_ms = 0;
  long rss_kb = 0;
  long heap_kb = 0; // allocated
  int threads = 0;
  int faults = 0;                        // so far
  int recovered = 0;                     // so far
  int underruns = 0;                     // so far, outside of faults
  int waits = 0;                         // of the worker, so far
  std::uint32_t longest_recovery_ms = 0; // from a fault's end to sound, so far
};

struct Result {
  std::vector<Sample> samples;
  std::map<std::string, int> faults; // by name
  std::vector<std::string> unrecovered;
};

// Takes two seconds of real time an hour or more. `sampled` is called as samples are taken; may be unset.
[[nodiscard]] Result run(const Settings& settings, const std::function<void(const Sample&)>& sampled);

} // namespace lumotune::media::soak
