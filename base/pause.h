// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/event_loop.h"

#include <cstdint>

namespace lumotune::base {

// Waits without blocking the user interface: events run, at least one pass, until more than that many milliseconds have
// gone. Everything may have changed afterwards. False when the program is ending: the caller returns at once.
[[nodiscard]] bool Pause(platform::EventLoop& loop, std::uint32_t milliseconds);

} // namespace lumotune::base
