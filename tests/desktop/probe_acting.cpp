// SPDX-License-Identifier: LGPL-2.1-or-later
// Does to the program what a user, the system or another program does.
#include "probe_commands.h"
#include "probe_windows.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <thread>

namespace probe {

// As the buttons of the caption do it.
int change_state(const wchar_t* window, wchar_t state) {
  window_name = window;
  const WPARAM command = state == L'x' ? SC_MAXIMIZE : state == L'n' ? SC_MINIMIZE : SC_RESTORE;
  return PostMessageW(main_window(), WM_SYSCOMMAND, command, 0) != 0 ? 0 : 1;
}

// Whichever window the menu belongs to.
int cancel_menus() {
  for (const wchar_t* name : {L"Lumotune", L"ListRadios"}) {
    window_name = name;
    if (const HWND window = main_window())
      PostMessageW(window, WM_CANCELMODE, 0, 0);
  }
  return 0;
}

int press(const wchar_t* button) {
  for (const HWND box : top_windows()) {
    if (class_of(box) != L"#32770" || IsWindowVisible(box) == 0)
      continue;
    for (const HWND child : children_of(box)) {
      if (text_of(child) == button)
        return PostMessageW(child, BM_CLICK, 0, 0) != 0 ? 0 : 1;
    }
  }
  return 1;
}

int crash_program() {
  DWORD process_id = 0;
  GetWindowThreadProcessId(main_window(), &process_id);
  const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, process_id);
  const auto nowhere = reinterpret_cast<LPTHREAD_START_ROUTINE>(static_cast<std::uintptr_t>(16));
  const HANDLE thread = CreateRemoteThread(process, nullptr, 0, nowhere, nullptr, 0, nullptr);
  const bool begun = thread != nullptr;
  CloseHandle(thread);
  CloseHandle(process);
  return begun ? 0 : 1;
}

// From several threads, so that a command waits whenever one was taken.
int flood(const wchar_t* until) {
  constexpr int senders = 4;
  constexpr ULONGLONG longest_ms = 60000;
  const HWND window = main_window();
  const ULONGLONG begun = GetTickCount64();
  std::atomic<unsigned> sent = 0;
  std::atomic<bool> over = false;
  std::vector<std::thread> threads;
  for (int i = 0; i < senders; ++i) {
    threads.emplace_back([&] {
      char text[] = "idk:1";
      COPYDATASTRUCT command{1, sizeof text - 1, text};
      while (!over) {
        DWORD_PTR taken = 0;
        if (SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&command), SMTO_NORMAL, 5000,
                                &taken) != 0)
          ++sent;
      }
    });
  }
  while (GetFileAttributesW(until) == INVALID_FILE_ATTRIBUTES && GetTickCount64() - begun < longest_ms)
    Sleep(10);
  const ULONGLONG lasted = GetTickCount64() - begun;
  over = true;
  for (std::thread& thread : threads)
    thread.join();
  std::printf("%u\t%u\n", sent.load(), static_cast<unsigned>(sent * 1000ULL / (lasted + 1)));
  return 0;
}

// Both wait in the queue before the first is taken out of it.
int end_and_click(const wchar_t* name) {
  const HWND window = main_window();
  const HWND target = control(name);
  return PostMessageW(window, WM_CLOSE, 0, 0) != 0 && PostMessageW(target, BM_CLICK, 0, 0) != 0 ? 0 : 1;
}

int send_early(const std::wstring& text) {
  constexpr ULONGLONG longest_ms = 30000;
  const ULONGLONG begun = GetTickCount64();
  HWND window = nullptr;
  while (window == nullptr && GetTickCount64() - begun < longest_ms)
    window = FindWindowA(nullptr, "Lumotune");
  std::string bytes = utf8(text);
  COPYDATASTRUCT command{1, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&command), SMTO_NORMAL, 20000, &answer);
  return answer == static_cast<DWORD_PTR>(-1) ? 0 : 1;
}

int close() {
  return PostMessageW(main_window(), WM_CLOSE, 0, 0) != 0 ? 0 : 1;
}

int end_session() {
  SendMessageW(main_window(), WM_QUERYENDSESSION, 0, 0);
  return PostMessageW(main_window(), WM_ENDSESSION, TRUE, 0) != 0 ? 0 : 1;
}

int send_app_command(int number) {
  return SendMessageW(main_window(), WM_APPCOMMAND, 0, MAKELPARAM(0, number)) != 0 ? 0 : 1;
}

} // namespace probe
