// SPDX-License-Identifier: LGPL-2.1-or-later
// Where code lies and who called it, told without memory of the heap and without locks: for a process that crashes.
#pragma once

#include "platform/win32/win.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumotune::platform::win32 {

// A place in a module: the module's file name in ASCII, other characters as "_", and the offset from its base. The name
// is empty where no module has that address.
struct CodePlace {
  std::array<char, 40> module{};
  std::uint32_t offset = 0;
};

// Any thread. Reads the loader's list as it stands, at most 1000 modules of it.
[[nodiscard]] CodePlace place_of(std::uintptr_t address) noexcept;

// Moves the context of a function on the calling thread's stack to its caller, whose address is one to return to. False
// where the stack ends, or is too broken to tell.
[[nodiscard]] bool step_to_caller(CONTEXT& context) noexcept;

// The address that runs in a context.
[[nodiscard]] std::uintptr_t running_at(const CONTEXT& context) noexcept;

// The signature of this program's RSDS record as 32 hexadecimal digits in the order in which debuggers print it, with a
// zero behind; "none" without such a record.
[[nodiscard]] std::array<char, 33> own_build_id() noexcept;

} // namespace lumotune::platform::win32
