// SPDX-License-Identifier: LGPL-2.1-or-later
// Decides when FFmpeg gives up: cancelled by the listener, past a deadline, or over a limit. Worker thread.
#pragma once

#include "platform/media/ffmpeg.h"

#include <chrono>
#include <exception>
#include <functional>

namespace lumotune::media {

// FFmpeg keeps a pointer to it: it must outlive everything that was opened with it.
struct Watch {
  using Clock = std::chrono::steady_clock;

  std::function<bool()> interrupted;
  Clock::time_point deadline = Clock::time_point::max();
  Clock::time_point arrived = Clock::now(); // when the last bytes came
  bool cancelled = false;                   // by the listener
  bool over = false;                        // a limit was reached: nothing more is opened

  [[nodiscard]] bool expired() const { return over || Clock::now() > deadline; }
  [[nodiscard]] bool stops() {
    cancelled = cancelled || (interrupted && interrupted());
    return cancelled || expired();
  }
  // Called by FFmpeg, which is C: no exception may pass through it.
  static int check(void* self) noexcept {
    try {
      return static_cast<Watch*>(self)->stops() ? 1 : 0;
    } catch (const std::exception&) {
      return 1;
    }
  }
  [[nodiscard]] AVIOInterruptCB callback() { return {check, this}; }
};

} // namespace lumotune::media
