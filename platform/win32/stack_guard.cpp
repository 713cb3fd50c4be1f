// SPDX-License-Identifier: LGPL-2.1-or-later
// What the compiler's stack protector asks of a program: the value that lies before each return address, and what
// happens when it was overwritten. The compiler's own library asks a cryptographic provider for the value: that loads
// libraries before the first line of ours has said where libraries may come from, and takes milliseconds of each start.
#include "platform/win32/win.h"

#include <cstdint>

namespace {

constexpr unsigned stack_cookie_check_failure = 2; // the system's numbers
constexpr unsigned range_check_failure = 8;

// Without handlers, because the stack is not to be trusted: the system ends the process with
// STATUS_STACK_BUFFER_OVERRUN.
[[noreturn]] __attribute__((no_stack_protector)) inline void fail_fast(unsigned reason) {
  asm volatile("int $0x29" : : "c"(reason));
  __builtin_trap();
}

} // namespace

// The names are the compiler's. NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail();
[[noreturn]] void __chk_fail();

__attribute__((no_stack_protector)) void __stack_chk_fail() {
  fail_fast(stack_cookie_check_failure);
}

__attribute__((no_stack_protector)) void __chk_fail() {
  fail_fast(range_check_failure);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

namespace lumotune::platform::win32 {
namespace {

std::uint64_t mixed(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
  value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
  return value ^ (value >> 31);
}

// From what differs with each start: times, numbers, and places that the system chooses by chance. Before every other
// constructor, so that no frame that was made with the old value returns with the new one.
__attribute__((constructor(101), no_stack_protector)) void choose_guard() {
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  LARGE_INTEGER count{};
  QueryPerformanceCounter(&count);
  std::uint64_t value = mixed((static_cast<std::uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime);
  value = mixed(value ^ static_cast<std::uint64_t>(count.QuadPart));
  value = mixed(value ^ (static_cast<std::uint64_t>(GetCurrentProcessId()) << 32 | GetCurrentThreadId()));
  value = mixed(value ^ reinterpret_cast<std::uintptr_t>(&now));
  value = mixed(value ^ reinterpret_cast<std::uintptr_t>(&choose_guard));
  value = mixed(value ^ __builtin_ia32_rdtsc());
  __stack_chk_guard = static_cast<std::uintptr_t>(value & ~0xffULL); // a zero byte stops what copies text
}

} // namespace
} // namespace lumotune::platform::win32
