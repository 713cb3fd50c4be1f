// SPDX-License-Identifier: LGPL-2.1-or-later
// Time that passes only by being asked for and slept through, for one program: a live list is reloaded, and a deadline
// reached, without waiting. Takes the place of the clocks that the engine and FFmpeg read.
#pragma once

#include <chrono>
#include <cstdint>

namespace lumotune::fuzz {

inline std::int64_t virtual_ns = 0;

inline std::int64_t pass_ns(std::int64_t ns) {
  return virtual_ns += ns;
}

} // namespace lumotune::fuzz

// One program has one such file: these replace the functions of the shared libraries. Asking takes a microsecond, so
// that whoever polls the clock comes to an end.
std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept {
  return time_point(duration(lumotune::fuzz::pass_ns(1000)));
}
extern "C" std::int64_t av_gettime_relative() {
  return lumotune::fuzz::pass_ns(1000) / 1000;
}
extern "C" int av_usleep(unsigned microseconds) {
  lumotune::fuzz::pass_ns(std::int64_t{microseconds} * 1000);
  return 0;
}
