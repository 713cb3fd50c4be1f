// SPDX-License-Identifier: LGPL-2.1-or-later
// Ends the process, whatever hangs in it.
#pragma once

#include <cstdint>

namespace lumotune::platform::win32 {

// Limits the remaining life of the process. A dedicated thread enforces it, because every other one may hang in a call
// that does not return: the sound system, a name look-up, another program's window. Any thread.
void limit_end(std::uint32_t milliseconds);

// Ends this process at once, without notifying libraries: one that waits for an already terminated thread in its
// detach code would hang forever. Everything to be kept must have been written.
[[noreturn]] void end_now(unsigned exit_code);

} // namespace lumotune::platform::win32
