// SPDX-License-Identifier: LGPL-2.1-or-later
// Stays beside the running program, drives it and measures what it costs; for the scripts that take many readings.
// Starting the probe for each would take longer than what is measured. Reads commands from standard input, a line each,
// and answers each with one line of UTF-8:
//   send TEXT     sends TEXT as the client does; the program's answer
//   command N     the special key N of a keyboard; 1 when the program took it
//   texts         the texts of InfoStatus, InfoName and PlayTL, between tabs
//   longest       the longest time, in milliseconds, for which the main window left a message waiting since the last
//   "longest";
//                 one message is sent every two milliseconds
//   costs         bytes of the working set, of private memory, number of threads, handles, GDI objects, USER objects,
//   between
//                 tabs
//   directory     the number of stations in the directory's list and the text of its status, between tabs; -1 while no
//   directory
//                 is visible
//   windows       the number of the program's visible top windows
#include "probe_windows.h"

#include "demo/companions/copy_data.h"

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using probe::control;
using probe::main_window;
using probe::text_of;
using probe::utf8;

class Stopwatch {
public:
  Stopwatch() {
    QueryPerformanceFrequency(&frequency_);
    QueryPerformanceCounter(&begun_);
  }
  [[nodiscard]] double passed_ms() const {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart - begun_.QuadPart) * 1000.0 / static_cast<double>(frequency_.QuadPart);
  }

private:
  LARGE_INTEGER frequency_{};
  LARGE_INTEGER begun_{};
};

// Asks the main window all the time whether it answers.
class WaitMeter {
public:
  WaitMeter() : thread_([this] { measure(); }) {}
  ~WaitMeter() {
    set(wanted_, true);
    thread_.join();
  }
  WaitMeter(const WaitMeter&) = delete;
  WaitMeter& operator=(const WaitMeter&) = delete;
  WaitMeter(WaitMeter&&) = delete;
  WaitMeter& operator=(WaitMeter&&) = delete;

  void watch(bool wanted) { set(wanted, false); }
  [[nodiscard]] double take_longest_ms() { return longest_ms_.exchange(0); }

private:
  void set(bool wanted, bool ended) {
    const std::scoped_lock lock(mutex_);
    wanted_ = wanted;
    ended_ = ended;
    changed_.notify_all();
  }
  void measure() {
    std::unique_lock lock(mutex_);
    while (!ended_) {
      changed_.wait(lock, [this] { return wanted_ || ended_; });
      lock.unlock();
      ask();
      lock.lock();
      changed_.wait_for(lock, std::chrono::milliseconds(2), [this] { return ended_; });
    }
  }
  void ask() {
    if (IsWindow(window_) == 0)
      window_ = main_window();
    if (window_ == nullptr)
      return;
    const Stopwatch stopwatch;
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window_, WM_NULL, 0, 0, SMTO_NORMAL, 20000, &ignored);
    if (const double waited = stopwatch.passed_ms(); waited > longest_ms_)
      longest_ms_ = waited;
  }

  std::mutex mutex_; // of the next two
  bool wanted_ = false;
  bool ended_ = false;
  std::condition_variable changed_;
  HWND window_ = nullptr; // the thread's own
  std::atomic<double> longest_ms_ = 0;
  std::thread thread_;
};

unsigned long threads_of(DWORD process) {
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  unsigned long count = 0;
  for (BOOL more = Thread32First(snapshot, &thread); more != 0; more = Thread32Next(snapshot, &thread))
    count += thread.th32OwnerProcessID == process ? 1 : 0;
  CloseHandle(snapshot);
  return count;
}

// Handles that the process has open. Wine's GetProcessHandleCount knows only those of the asking process.
unsigned long handles_of(DWORD process) {
  struct Entry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG rights;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
  };
  constexpr ULONG extended_handle_information = 64;
  using Query = LONG(NTAPI*)(ULONG, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<std::byte> table(1U << 20);
  while (query(extended_handle_information, table.data(), static_cast<ULONG>(table.size()), nullptr) < 0) {
    if (table.size() > (1U << 26))
      return 0;
    table.resize(table.size() * 2);
  }
  ULONG_PTR count = 0;
  std::memcpy(&count, table.data(), sizeof count);
  unsigned long found = 0;
  for (ULONG_PTR i = 0; i < count; ++i) {
    Entry entry{};
    std::memcpy(&entry, table.data() + 2 * sizeof count + i * sizeof entry, sizeof entry);
    found += entry.process == process ? 1 : 0;
  }
  return found;
}

// Drawing objects of the process. Wine's GetGuiResources does not count them; its table of them is read where the
// system's layout has it, in the process itself.
unsigned long drawing_objects_of(HANDLE process) {
  if (const DWORD told = GetGuiResources(process, GR_GDIOBJECTS); told != 0)
    return told;
  struct Entry {
    std::uint64_t object;
    std::uint16_t owner;
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
  };
  using Query = LONG(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess")));
  void* basics[6] = {}; // the second one points to the process's environment block
  if (query(process, 0, basics, sizeof basics, nullptr) < 0)
    return 0;
  constexpr std::size_t table_offset = 0xf8;
  const void* table = nullptr;
  std::vector<Entry> entries(16384);
  if (ReadProcessMemory(process, static_cast<std::byte*>(basics[1]) + table_offset, &table, sizeof table, nullptr) ==
          0 ||
      ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(Entry), nullptr) == 0)
    return 0;
  return static_cast<unsigned long>(
      std::count_if(entries.begin(), entries.end(), [](const Entry& entry) { return entry.type != 0; }));
}

unsigned long windows_of(DWORD process) {
  unsigned long count = 0;
  for (const HWND window : probe::top_windows()) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == process)
      count += 1 + static_cast<unsigned long>(probe::children_of(window).size());
  }
  return count;
}

void print_costs() {
  DWORD id = 0;
  GetWindowThreadProcessId(main_window(), &id);
  const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(process, &memory, sizeof memory);
  std::printf("%llu\t%lu\t%lu\t%lu\t%lu\n", static_cast<unsigned long long>(memory.WorkingSetSize), threads_of(id),
              handles_of(id), drawing_objects_of(process), windows_of(id));
  CloseHandle(process);
}

void print_directory() {
  const std::wstring owner = L"ListRadios";
  const HWND directory = probe::main_window(owner);
  DWORD_PTR count = 0;
  if (directory == nullptr || IsWindowVisible(directory) == 0 ||
      SendMessageTimeoutW(control(L"ListView1", owner), LVM_GETITEMCOUNT, 0, 0, SMTO_NORMAL, 20000, &count) == 0)
    std::printf("-1\t\n");
  else
    std::printf("%llu\t%s\n", static_cast<unsigned long long>(count), utf8(text_of(control(L"Label1", owner))).c_str());
}

int visible_windows() {
  DWORD program = 0;
  GetWindowThreadProcessId(main_window(), &program);
  int count = 0;
  for (const HWND window : probe::top_windows()) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    count += owner == program && IsWindowVisible(window) != 0 ? 1 : 0;
  }
  return count;
}

void answer(std::wstring_view line, WaitMeter& meter) {
  const std::wstring rest(line.substr(std::min(line.size(), line.find(L' ') + 1)));
  if (line.starts_with(L"send "))
    std::printf("%lld\n", static_cast<long long>(
                              companion::send_text(main_window(), nullptr, companion::ansi(rest), 5000).value_or(0)));
  else if (line.starts_with(L"command "))
    std::printf("%d\n", SendMessageW(main_window(), WM_APPCOMMAND, 0, MAKELPARAM(0, _wtoi(rest.c_str()))) != 0);
  else if (line == L"texts")
    std::printf("%s\t%s\t%s\n", utf8(text_of(control(L"InfoStatus"))).c_str(),
                utf8(text_of(control(L"InfoName"))).c_str(), utf8(text_of(control(L"PlayTL"))).c_str());
  else if (line.starts_with(L"watch ")) {
    meter.watch(rest == L"1");
    std::printf("ok\n");
  } else if (line == L"longest")
    std::printf("%.1f\n", meter.take_longest_ms());
  else if (line == L"directory")
    print_directory();
  else if (line == L"costs")
    print_costs();
  else if (line == L"windows")
    std::printf("%d\n", visible_windows());
  else
    std::printf("unknown\n");
  std::fflush(stdout);
}

} // namespace

int wmain() {
  WaitMeter meter;
  char bytes[4096];
  while (std::fgets(bytes, sizeof bytes, stdin) != nullptr) {
    std::wstring line(sizeof bytes, L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes, -1, line.data(), static_cast<int>(line.size()));
    line.resize(static_cast<std::size_t>(std::max(1, length) - 1));
    while (!line.empty() && (line.back() == L'\n' || line.back() == L'\r'))
      line.pop_back();
    answer(line, meter);
  }
  return 0;
}
