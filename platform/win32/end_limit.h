// SPDX-License-Identifier: LGPL-2.1-or-later
// The process ends, whatever hangs in it.
#pragma once

#include <cstdint>

namespace lumotune::platform::win32 {

// From then on the process lives that long at the most; a thread of its own ends it, because every other one may hang
// in a call that does not return: of the sound system, of a name look-up, of another program's window. Any thread.
void limit_end(std::uint32_t milliseconds);

// Ends this process at once. The libraries are not told: one that waits in its last code for a thread that is no more
// would hang there for ever. What is to be kept must have been written.
[[noreturn]] void end_now(unsigned exit_code);

} // namespace lumotune::platform::win32
