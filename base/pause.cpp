// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/pause.h"

namespace lumotune::base {

// Unsigned subtraction stays correct when the tick count wraps round.
bool Pause(platform::EventLoop& loop, std::uint32_t milliseconds) {
  const std::uint32_t start = loop.tick_count_ms();
  do {
    if (!loop.wait_a_little())
      return false;
  } while (loop.tick_count_ms() - start <= milliseconds);
  return !loop.quitting();
}

} // namespace lumotune::base
