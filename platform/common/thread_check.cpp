// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/thread_check.h"

#include <cstdio>

namespace lumotune::platform {

// A trap rather than abort(): in a windowed program the C library's abort may wait in a message box, which keeps
// running the event loop of the broken program.
void stop_program(const char* reason, const char* role) noexcept {
  (void)std::fprintf(stderr, "lumotune: %s %s\n", reason, role);
  (void)std::fflush(stderr);
  __builtin_trap();
}

} // namespace lumotune::platform
