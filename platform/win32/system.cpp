// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/system.h"

#include "platform/common/program_file.h"

#include <objbase.h>

#include <shellapi.h>

#include <array>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

using FolderQuestion = DWORD (*)(wchar_t* path, DWORD length);

std::wstring folder(FolderQuestion ask) {
  std::wstring path(32768, L'\0');
  path.resize(ask(path.data(), static_cast<DWORD>(path.size())));
  return path;
}

// In the order of the system's own search, but not along the PATH. The system is never left to search by itself: where
// it does not find the first word of a command line it tries the first two, and so on to the end of the line.
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

} // namespace

bool Win32Shell::start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) {
  const ProgramFile file = program_file(command_line, application);
  const std::wstring program = file.whole || file.name.empty() ? file.name : found_program(file.name);
  if (program.empty())
    return false;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(show);
  PROCESS_INFORMATION started{};
  std::wstring writable = command_line; // the system writes into it
  if (CreateProcessW(program.c_str(), writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started) == 0)
    return false;
  // What is started by the user's click may come to the front.
  if (show == ShowWindow::normal_focus)
    AllowSetForegroundWindow(started.dwProcessId);
  const KernelHandle process(started.hProcess);
  const KernelHandle thread(started.hThread);
  return true;
}

namespace {

// COM on this thread, which programs that join in opening a document may want.
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

int Win32Shell::open(const std::wstring& quoted_target) {
  const ComSession com;
  return static_cast<int>(reinterpret_cast<INT_PTR>(
      ShellExecuteW(nullptr, nullptr, quoted_target.c_str(), nullptr, nullptr, SW_SHOWNORMAL)));
}

namespace {

bool is_box(HWND window) {
  std::array<wchar_t, 8> name{};
  return GetClassNameW(window, name.data(), static_cast<int>(name.size())) > 0 &&
         std::wstring_view(name.data()) == L"#32770";
}

BOOL CALLBACK close_box(HWND window, LPARAM /*unused*/) {
  if (is_box(window))
    EndDialog(window, IDNO);
  return TRUE;
}

// The first one is the topmost: of boxes inside each other the one that can be answered.
BOOL CALLBACK find_box(HWND window, LPARAM found) {
  if (!is_box(window) || IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0)
    return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

} // namespace

Win32Dialogs::Win32Dialogs(EventLoop& loop, HWND owner)
    : loop_(loop), owner_(owner), end_watch_(loop, [] { EnumThreadWindows(GetCurrentThreadId(), close_box, 0); }) {}

bool Win32Dialogs::bring_forward() {
  HWND box = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), find_box, reinterpret_cast<LPARAM>(&box));
  if (box == nullptr)
    return false;
  BringWindowToTop(box);
  SetForegroundWindow(box);
  return true;
}

BoxAnswer Win32Dialogs::message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) {
  const BoxAnswer unanswered = buttons == BoxButtons::yes_no ? BoxAnswer::no : BoxAnswer::ok;
  if (loop_.ending())
    return unanswered;
  UINT style = MB_SETFOREGROUND;
  style |= icon == BoxIcon::information ? MB_ICONINFORMATION : 0U;
  style |= buttons == BoxButtons::yes_no ? MB_YESNO : MB_OK;
  // Before the window that the user has to do with; of other programs' windows none counts. A box that belonged to a
  // hidden window would have no button in the task bar, and could be lost behind others.
  const HWND active = GetActiveWindow();
  const HWND owner = active != nullptr ? active : owner_;
  const HWND shown = IsWindowVisible(owner) != 0 ? owner : nullptr;
  const int button = end_watch_.during([&] { return MessageBoxW(shown, text.c_str(), title.c_str(), style); });
  return button == IDYES ? BoxAnswer::yes : unanswered;
}

Win32Machine::Win32Machine() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  folder_ = path.substr(0, path.find_last_of(L'\\'));
}

void Win32Machine::begin_end() {
  running_.begin_end();
  if (const auto copy = std::exchange(on_begin_end, {}))
    copy();
}

// The program's name comes first, in quotation marks where it holds a blank.
std::wstring Win32Machine::command_line() const {
  std::wstring text = GetCommandLineW();
  const std::size_t end = !text.empty() && text[0] == L'"' ? text.find(L'"', 1) : text.find_first_of(L" \t");
  if (end == std::wstring::npos)
    return {};
  text.erase(0, end + 1);
  const std::size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos)
    return {};
  return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

std::wstring Win32Machine::date_and_time() const {
  std::array<wchar_t, 80> date{};
  std::array<wchar_t, 80> time{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date.data(),
                  static_cast<int>(date.size()), nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, time.data(), static_cast<int>(time.size()));
  return std::wstring(date.data()) + L" " + time.data();
}

} // namespace lumotune::platform::win32
