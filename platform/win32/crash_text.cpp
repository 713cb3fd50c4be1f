// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/crash_text.h"

#include "platform/threads/thread_name.h"
#include "platform/win32/crash_stack.h"
#include "platform/win32/end_limit.h"

#include <winternl.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <exception>
#include <string_view>

namespace lumotune::platform::win32 {
namespace {

constexpr ULONG stack_for_overflow = 32768; // bytes that a thread's overflow leaves for the text
constexpr DWORD fatal_app_exit = 0x40000015;
constexpr DWORD thrown_by_gcc = 0x20474343; // what the compiler raises for a C++ exception
constexpr DWORD longest_wait_ms = 3000;     // of another thread that crashes meanwhile

enum class Stage { armed, collecting, writing, done };

using CreateFileCall = NTSTATUS NTAPI(PHANDLE, ACCESS_MASK, POBJECT_ATTRIBUTES, PIO_STATUS_BLOCK, PLARGE_INTEGER, ULONG,
                                      ULONG, ULONG, ULONG, PVOID, ULONG);

// Everything that the text needs, made ready before: where it is used nothing may be allocated.
struct Crash {
  std::atomic<Stage> stage = Stage::armed;
  std::atomic<DWORD> thread = 0; // the one whose crash is told
  DWORD ui_thread = 0;
  CreateFileCall* create_file = nullptr;
  std::wstring path; // as the kernel has it
  std::array<char, max_crash_text> text{};
  std::size_t length = 0;
  std::size_t beginning = 0; // of it, what every text has
  CONTEXT context{};
};
Crash crash; // NOLINT: of the process, as the handlers are

void add(std::string_view part) noexcept {
  const std::size_t count = std::min(part.size(), crash.text.size() - crash.length);
  std::memcpy(crash.text.data() + crash.length, part.data(), count);
  crash.length += count;
}

void add_hex(std::uint32_t number, int digits) noexcept {
  std::array<char, 8> text{};
  std::size_t at = text.size();
  do {
    text[--at] = "0123456789abcdef"[number & 15];
    number >>= 4;
    --digits;
  } while (number != 0 || digits > 0);
  add({text.data() + at, text.size() - at});
}

// Of the address that could not be reached it is told whether it is one of the first 64 KiB, as members of nothing are.
void add_kind(const EXCEPTION_RECORD& record) noexcept {
  if ((record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION && record.ExceptionCode != EXCEPTION_IN_PAGE_ERROR) ||
      record.NumberParameters < 2)
    return;
  constexpr ULONG_PTR first_pages = 0x10000;
  const ULONG_PTR way = record.ExceptionInformation[0];
  add("kind ");
  add(way == 0 ? "read" : way == 1 ? "write" : "run");
  add(record.ExceptionInformation[1] < first_pages ? " null\r\n" : " elsewhere\r\n");
}

void add_thread() noexcept {
  const DWORD id = GetCurrentThreadId();
  const char* name = name_of_thread(id);
  add("thread ");
  add(id == crash.ui_thread ? "user interface" : name != nullptr ? name : "other");
  add("\r\n");
}

// False where no module has the address.
bool add_frame(std::uintptr_t address) noexcept {
  const CodePlace place = place_of(address);
  if (place.module[0] == '\0') {
    add("frame none\r\n");
    return false;
  }
  add("frame ");
  add(place.module.data());
  add("+");
  add_hex(place.offset, 1);
  add("\r\n");
  return true;
}

void collect(const EXCEPTION_POINTERS& pointers) noexcept {
  crash.length = crash.beginning;
  add("code ");
  add_hex(pointers.ExceptionRecord->ExceptionCode, 8);
  add("\r\n");
  add_kind(*pointers.ExceptionRecord);
  add_thread();
  crash.context = *pointers.ContextRecord;
  // What crashes may lie nowhere, as a call of nothing does; a caller that does is none.
  for (std::size_t count = 0; count < max_crash_frames; ++count) {
    const bool somewhere = add_frame(running_at(crash.context));
    if ((!somewhere && count > 0) || !step_to_caller(crash.context))
      break;
  }
}

// By the kernel's own call: the usual one allocates, in a heap that may be damaged or locked.
void write() noexcept {
  add("end\r\n");
  UNICODE_STRING name{static_cast<USHORT>(crash.path.size() * sizeof(wchar_t)),
                      static_cast<USHORT>(crash.path.size() * sizeof(wchar_t)), crash.path.data()};
  OBJECT_ATTRIBUTES attributes{};
  InitializeObjectAttributes(&attributes, &name, OBJ_CASE_INSENSITIVE, nullptr, nullptr);
  IO_STATUS_BLOCK status{};
  HANDLE file = nullptr;
  if (crash.create_file(&file, FILE_GENERIC_WRITE, &attributes, &status, nullptr, FILE_ATTRIBUTE_NORMAL,
                        FILE_SHARE_READ, FILE_OVERWRITE_IF, FILE_SYNCHRONOUS_IO_NONALERT | FILE_NON_DIRECTORY_FILE,
                        nullptr, 0) < 0)
    return;
  DWORD written = 0;
  WriteFile(file, crash.text.data(), static_cast<DWORD>(crash.length), &written, nullptr);
  CloseHandle(file);
}

void wait_for_the_text() noexcept {
  constexpr DWORD step_ms = 10;
  for (DWORD waited = 0; crash.stage != Stage::done && waited < longest_wait_ms; waited += step_ms)
    Sleep(step_ms);
}

LONG WINAPI unhandled(EXCEPTION_POINTERS* pointers) {
  // An exception of C++ that nobody catches: goes on where it was thrown, which calls std::terminate.
  if (pointers->ExceptionRecord->ExceptionCode == thrown_by_gcc &&
      (pointers->ExceptionRecord->ExceptionFlags & EXCEPTION_NONCONTINUABLE) == 0)
    return EXCEPTION_CONTINUE_EXECUTION;
  const DWORD self = GetCurrentThreadId();
  DWORD nobody = 0;
  if (!crash.thread.compare_exchange_strong(nobody, self) && nobody != self) {
    wait_for_the_text(); // this thread's end would be that of the process
    return EXCEPTION_CONTINUE_SEARCH;
  }
  if (crash.stage == Stage::armed) {
    crash.stage = Stage::collecting;
    collect(*pointers);
  } else if (crash.stage != Stage::collecting) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  // Also what had been collected when collecting itself crashed.
  crash.stage = Stage::writing;
  write();
  crash.stage = Stage::done;
  return EXCEPTION_CONTINUE_SEARCH;
}

// Raised, so that debuggers and the system's own reports see the crash as well.
[[noreturn]] void give_up() {
  RaiseException(fatal_app_exit, EXCEPTION_NONCONTINUABLE, 0, nullptr);
  end_now(fatal_app_exit); // where something else took the exception
}

void aborted(int /*signal*/) {
  give_up();
}

FARPROC system_function(const char* name) {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  return library == nullptr ? nullptr : GetProcAddress(library, name);
}

template <typename Call>
Call* system_call(const char* name) {
  return reinterpret_cast<Call*>(reinterpret_cast<void*>(system_function(name)));
}

// The documented question is answered by what the program's manifest names.
std::string system_version() {
  using GetVersion = NTSTATUS NTAPI(PRTL_OSVERSIONINFOW);
  RTL_OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  const auto get = system_call<GetVersion>("RtlGetVersion");
  if (get == nullptr || get(&version) < 0)
    return "unknown";
  return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
         std::to_string(version.dwBuildNumber) + (system_function("wine_get_version") != nullptr ? " wine" : "");
}

// A file below the folder of the program, in the words of the kernel.
std::wstring kernel_path(const std::wstring& name) {
  constexpr std::size_t longest_path = 32768;
  std::wstring path(longest_path, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  path.resize(path.find_last_of(L'\\') + 1);
  if (path.starts_with(L"\\\\?\\"))
    path.erase(0, 4);
  else if (path.starts_with(L"\\\\"))
    path.replace(0, 1, L"UNC");
  path = L"\\??\\" + path + name;
  path.resize(std::min(path.size(), longest_path - 1)); // a length of the kernel has 16 bits
  return path;
}

} // namespace

void arm_crash_text(const std::wstring& name, const std::string& version) {
  crash.create_file = system_call<CreateFileCall>("NtCreateFile");
  if (crash.create_file == nullptr)
    return;
  crash.path = kernel_path(name);
  crash.ui_thread = GetCurrentThreadId();
  add("\xEF\xBB\xBF"
      "Lumotune spadlo. Tento soubor můžete poslat tomu, kdo je opravuje; není v něm nic o vás.\r\n"
      "Jak na to, stojí v příručce v oddílu „Kdyby Lumotune spadlo“.\r\n\r\nlumotune-crash 1\r\nversion ");
  add(version);
  add("\r\nbuild ");
  add(own_build_id().data());
  add("\r\nsystem ");
  add(system_version());
  add("\r\n");
  crash.beginning = crash.length;
  ULONG bytes = stack_for_overflow;
  SetThreadStackGuarantee(&bytes);
  SetUnhandledExceptionFilter(unhandled);
  std::set_terminate(give_up);
  (void)std::signal(SIGABRT, aborted);
}

} // namespace lumotune::platform::win32
