// SPDX-License-Identifier: LGPL-2.1-or-later
// A program that crashes in the way that it is told, for the test of the text that a crash leaves.
//   crash_on_purpose KIND        arms the text "pad.txt" beside itself and crashes
//   crash_on_purpose run KIND    does that in a process of its own and prints the code that it ended with
#include "platform/threads/thread_name.h"
#include "platform/win32/crash_text.h"
#include "platform/win32/win.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#define NEVER_INLINED __attribute__((noinline))

namespace crash_on_purpose {

// Not seen through by the compiler.
template <typename T>
T hidden(T value) {
  volatile T kept = value;
  return kept;
}

NEVER_INLINED void write_to_null() {
  *hidden(static_cast<volatile int*>(nullptr)) = 1;
}

NEVER_INLINED void call_null() {
  hidden(static_cast<void (*)()>(nullptr))();
}

NEVER_INLINED int overflow_the_stack(int depth) {
  volatile char much[1024] = {}; // NOLINT(modernize-avoid-c-arrays): volatile
  much[hidden(depth) & 1023] = 1;
  return hidden(depth) < 0 ? 0 : overflow_the_stack(depth + 1) + much[0];
}

NEVER_INLINED void throw_and_let_nobody_catch() {
  throw std::runtime_error("soukromý text výjimky");
}

NEVER_INLINED void break_a_promise() noexcept {
  throw_and_let_nobody_catch();
}

NEVER_INLINED void call_abort() {
  std::abort();
}

struct Base {
  Base() { call(); }
  virtual ~Base() = default;
  NEVER_INLINED void call() { nothing_behind_it(); }
  virtual void nothing_behind_it() = 0;
};
struct Derived : Base {
  void nothing_behind_it() override {}
};
NEVER_INLINED void call_a_pure_virtual_function() {
  const Derived made;
}

NEVER_INLINED void fail_fast() {
  asm volatile("int $0x29" : : "c"(7));
}

// What the frames above consist of is overwritten by addresses that lead nowhere.
NEVER_INLINED void break_the_stack() {
  volatile std::uintptr_t here = 0;
  volatile std::uintptr_t* each = &here;
  for (int count = hidden(40); count > 0; --count)
    *++each = static_cast<std::uintptr_t>(0x1111111111111110ULL);
  write_to_null();
}

NEVER_INLINED void crash_in_a_thread() {
  std::thread([] {
    lumotune::platform::name_this_thread("stream worker");
    write_to_null();
  }).join();
}

NEVER_INLINED void throw_in_a_thread() {
  std::thread([] {
    lumotune::platform::name_this_thread("file worker");
    throw_and_let_nobody_catch();
  }).join();
}

NEVER_INLINED void crash_in_many_threads() {
  static volatile bool begun = false;
  std::array<std::thread, 8> threads;
  for (std::thread& each : threads)
    each = std::thread([] {
      while (!begun)
        YieldProcessor();
      write_to_null();
    });
  begun = true;
  for (std::thread& each : threads)
    each.join();
}

LRESULT CALLBACK broken_procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_APP)
    write_to_null();
  return DefWindowProcW(window, message, first, second);
}

NEVER_INLINED void crash_in_a_window_procedure() {
  WNDCLASSW kind{};
  kind.lpszClassName = L"crash_on_purpose";
  kind.lpfnWndProc = broken_procedure;
  RegisterClassW(&kind);
  PostMessageW(CreateWindowW(kind.lpszClassName, L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr), WM_APP, 0, 0);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
    if (message.message == WM_APP)
      return;
  }
}

struct Kind {
  std::wstring_view name;
  void (*crash)();
};
constexpr std::array kinds{
    Kind{L"null", write_to_null},
    Kind{L"call", call_null},
    Kind{L"overflow", [] { (void)overflow_the_stack(0); }},
    Kind{L"throw", throw_and_let_nobody_catch},
    Kind{L"noexcept", break_a_promise},
    Kind{L"abort", call_abort},
    Kind{L"pure", call_a_pure_virtual_function},
    Kind{L"fail-fast", fail_fast},
    Kind{L"broken-stack", break_the_stack},
    Kind{L"window", crash_in_a_window_procedure},
    Kind{L"thread", crash_in_a_thread},
    Kind{L"throw-thread", throw_in_a_thread},
    Kind{L"many", crash_in_many_threads},
};

std::wstring own_path() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

int run(const std::wstring& kind) {
  std::wstring line = L"\"" + own_path() + L"\" " + kind;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made) == 0)
    return 1;
  const lumotune::platform::win32::KernelHandle process(made.hProcess);
  const lumotune::platform::win32::KernelHandle thread(made.hThread);
  constexpr DWORD longest_ms = 60000;
  if (WaitForSingleObject(process.get(), longest_ms) != WAIT_OBJECT_0) {
    TerminateProcess(process.get(), 1);
    std::puts("hangs");
    return 1;
  }
  DWORD code = 0;
  GetExitCodeProcess(process.get(), &code);
  std::printf("%08lx\n", code);
  return 0;
}

} // namespace crash_on_purpose

int wmain(int count, wchar_t** words) {
  using namespace crash_on_purpose;
  if (count > 2 && std::wstring_view(words[1]) == L"run")
    return run(words[2]);
  lumotune::platform::win32::arm_crash_text(L"pad.txt", "1.2.3");
  for (const Kind& kind : kinds) {
    if (count > 1 && kind.name == words[1])
      kind.crash();
  }
  return 2;
}
