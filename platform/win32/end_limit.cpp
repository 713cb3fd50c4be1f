// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/end_limit.h"

#include "platform/threads/thread_name.h"
#include "platform/win32/win.h"

namespace lumotune::platform::win32 {
namespace {

DWORD WINAPI end_later(LPVOID milliseconds) {
  name_this_thread("end limit");
  Sleep(static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(milliseconds)));
  end_now(0);
}

} // namespace

void limit_end(std::uint32_t milliseconds) {
  constexpr SIZE_T stack_bytes = 65536;
  const KernelHandle thread(CreateThread(nullptr, stack_bytes, end_later,
                                         reinterpret_cast<LPVOID>(static_cast<std::uintptr_t>(milliseconds)),
                                         STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
}

void end_now(unsigned exit_code) {
  TerminateProcess(GetCurrentProcess(), exit_code);
  ExitProcess(exit_code); // not reached
}

} // namespace lumotune::platform::win32
