// SPDX-License-Identifier: LGPL-2.1-or-later
// Starts two programs in turn and measures how long each takes until its window is visible, and how much memory the
// second one holds a few seconds later.
//   start_bench BARE.EXE BARE-CAPTION PROGRAM.EXE CAPTION TURNS
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Measured {
  double ms = -1;
  double megabytes = 0;
};

Measured start(const wchar_t* program, const wchar_t* caption, DWORD stay_ms) {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER begin{};
  LARGE_INTEGER end{};
  QueryPerformanceFrequency(&frequency);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  std::wstring line = L"\"" + std::wstring(program) + L"\"";
  QueryPerformanceCounter(&begin);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started) == 0)
    return {};
  HWND window = nullptr;
  Measured result;
  for (int i = 0; i < 20000; ++i) {
    window = FindWindowW(nullptr, caption);
    if (window != nullptr && IsWindowVisible(window) != 0)
      break;
    Sleep(1);
  }
  QueryPerformanceCounter(&end);
  if (window != nullptr)
    result.ms = static_cast<double>(end.QuadPart - begin.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
  Sleep(stay_ms);
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  if (GetProcessMemoryInfo(started.hProcess, &memory, sizeof memory) != 0)
    result.megabytes = static_cast<double>(memory.WorkingSetSize) / 1048576.0;
  PostMessageW(window, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(started.hProcess, 5000) != WAIT_OBJECT_0)
    TerminateProcess(started.hProcess, 1);
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return result;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

} // namespace

int wmain(int count, wchar_t** words) {
  if (count != 6)
    return 2;
  const int turns = _wtoi(words[5]);
  std::vector<double> bare;
  std::vector<double> ours;
  double megabytes = 0;
  for (int i = 0; i <= turns; ++i) {
    const Measured a = start(words[1], words[2], 200);
    const Measured b = start(words[3], words[4], i == turns ? 5000 : 200);
    if (a.ms < 0 || b.ms < 0)
      return 1;
    megabytes = b.megabytes;
    if (i == 0)
      continue; // warms everything up
    bare.push_back(a.ms);
    ours.push_back(b.ms);
  }
  // Each start beside the other program's: the machine's speed changes from second to second.
  std::vector<double> ratios;
  for (std::size_t i = 0; i < ours.size(); ++i)
    ratios.push_back(ours[i] / bare[i]);
  const double ratio = median(ratios);
  std::printf("start until the window is visible | %.0f ms | bare window %.0f ms | %.2f | 1.50\n", median(ours),
              median(bare), ratio);
  std::printf("working set while playing | %.1f MB | - | - | 40 MB\n", megabytes);
  return ratio <= 1.5 && megabytes <= 40 ? 0 : 3;
}
