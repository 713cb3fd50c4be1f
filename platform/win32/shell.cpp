// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/shell.h"

#include "platform/common/program_file.h"
#include "platform/win32/win.h"

#include <objbase.h>

#include <shellapi.h>

#include <string_view>

namespace lumotune::platform::win32 {
namespace {

using FolderQuestion = DWORD (*)(wchar_t* path, DWORD length);

std::wstring folder(FolderQuestion ask) {
  std::wstring path(32768, L'\0');
  path.resize(ask(path.data(), static_cast<DWORD>(path.size())));
  return path;
}

// The system's search order without the PATH. CreateProcess never searches by itself: where it does not find the first
// word of a command line it tries the first two, and so on to the end of the line.
std::wstring found_program(const std::wstring& name) {
  static constexpr FolderQuestion folders[] = {
      [](wchar_t* path, DWORD length) {
        const std::wstring_view own(path, GetModuleFileNameW(nullptr, path, length));
        return static_cast<DWORD>(own.substr(0, own.find_last_of(L'\\')).size());
      },
      [](wchar_t* path, DWORD length) { return GetCurrentDirectoryW(length, path); },
      [](wchar_t* path, DWORD length) -> DWORD { return GetSystemDirectoryW(path, length); },
      [](wchar_t* path, DWORD length) -> DWORD { return GetWindowsDirectoryW(path, length); }};
  for (const FolderQuestion ask : folders) {
    const std::wstring path = folder(ask) + L"\\" + name;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      return path;
  }
  return {};
}

// COM on this thread, which shell extensions may need to open a document.
class ComSession {
public:
  ComSession() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
  ComSession(const ComSession&) = delete;
  ComSession& operator=(const ComSession&) = delete;
  ~ComSession() {
    if (entered_)
      CoUninitialize();
  }

private:
  bool entered_;
};

} // namespace

bool Shell::start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) {
  thread_.check();
  const ProgramFile file = program_file(command_line, application);
  const std::wstring program = file.whole || file.name.empty() ? file.name : found_program(file.name);
  if (program.empty())
    return false;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(show);
  PROCESS_INFORMATION started{};
  std::wstring writable = command_line; // CreateProcess may modify it
  if (CreateProcessW(program.c_str(), writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started) == 0)
    return false;
  // Programs started by a click may come to the front.
  if (show == ShowWindow::normal_focus)
    AllowSetForegroundWindow(started.dwProcessId);
  const KernelHandle process(started.hProcess);
  const KernelHandle thread(started.hThread);
  return true;
}

int Shell::open(const std::wstring& quoted_target) {
  thread_.check();
  const ComSession com;
  return static_cast<int>(reinterpret_cast<INT_PTR>(
      ShellExecuteW(nullptr, nullptr, quoted_target.c_str(), nullptr, nullptr, SW_SHOWNORMAL)));
}

} // namespace lumotune::platform::win32
