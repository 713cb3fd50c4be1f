// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/event_loop.h"

#include <cstdint>

namespace lumotune::base {

// Runs events, at least one pass, until more than `milliseconds` have passed. Any state may have changed afterwards.
// False when the program is ending: the caller must return at once.
[[nodiscard]] bool Pause(platform::EventLoop& loop, std::uint32_t milliseconds);

} // namespace lumotune::base
