// SPDX-License-Identifier: LGPL-2.1-or-later
// Names of threads, for debuggers, crash dumps and the tools that count a thread's time and wake-ups.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lumotune::platform {

// ASCII, at most 15 characters: the longest name that every system keeps. It has to stay. Without effect where the
// system has no names.
void set_name_of_this_thread(const char* name) noexcept;

// To be called at the root of every thread, with a literal. The main thread keeps the program's name.
template <std::size_t Size>
void name_this_thread(const char (&name)[Size]) noexcept {
  constexpr std::size_t longest = 15;
  static_assert(Size - 1 <= longest, "longer names are cut or refused");
  set_name_of_this_thread(name);
}

#ifdef _WIN32
// The name that the thread of that number took last; nullptr without one. Of 64 threads at a time. Any thread, also one
// that crashes: nothing is allocated or locked.
[[nodiscard]] const char* name_of_thread(std::uint32_t id) noexcept;
#endif

} // namespace lumotune::platform
