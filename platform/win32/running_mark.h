// SPDX-License-Identifier: LGPL-2.1-or-later
// How the copies of the program in one session of the user know of each other.
#pragma once

#include "platform/win32/win.h"

#include <cstdint>

namespace lumotune::platform::win32 {

// What the creation of the mark leaves as the last error. Access is denied to the mark of a copy with higher
// privileges.
[[nodiscard]] bool tells_of_a_copy(DWORD creation_error);

// One copy holds the mark, from its making to the end of its process. User-interface thread.
class RunningMark {
public:
  static constexpr std::uint32_t longest_wait_ms = 8000;

  // Waits for a holder that has begun to end, no longer than that.
  RunningMark();

  // Another copy holds it, whatever its rights: one that runs as administrator counts too.
  [[nodiscard]] bool previous() const { return previous_; }
  // The holder begins to end.
  void begin_end();

private:
  void wait_for_the_end();

  KernelHandle mark_;
  KernelHandle ending_;
  bool previous_ = false;
};

} // namespace lumotune::platform::win32
