// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/companions/note.h"

#include <windows.h>

namespace companion {
namespace {

std::wstring program_path() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

LRESULT CALLBACK text_window(HWND window, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
  case WM_PAINT: {
    PAINTSTRUCT painting{};
    RECT room{};
    const HDC dc = BeginPaint(window, &painting);
    GetClientRect(window, &room);
    InflateRect(&room, -16, -16);
    wchar_t text[4096];
    const int length = GetDlgItemTextW(window, 1, text, 4096);
    SetBkMode(dc, TRANSPARENT);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    DrawTextW(dc, text, length, &room, DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
    EndPaint(window, &painting);
    return 0;
  }
  case WM_KEYDOWN:
    if (w == VK_ESCAPE)
      PostQuitMessage(0);
    return 0;
  case WM_LBUTTONUP:
  case WM_CLOSE:
    PostQuitMessage(0);
    return 0;
  default:
    return DefWindowProcW(window, message, w, l);
  }
}

} // namespace

std::wstring program_folder() {
  const std::wstring path = program_path();
  return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring program_name() {
  const std::wstring path = program_path();
  const std::size_t start = path.find_last_of(L'\\') + 1;
  return path.substr(start, path.find_last_of(L'.') - start);
}

std::wstring arguments() {
  const std::wstring line = GetCommandLineW();
  const std::size_t end = !line.empty() && line[0] == L'"' ? line.find(L'"', 1) : line.find(L' ');
  if (end == std::wstring::npos)
    return {};
  const std::size_t start = line.find_first_not_of(L' ', end + 1);
  return start == std::wstring::npos ? std::wstring() : line.substr(start);
}

void note(const std::wstring& line) {
  const std::wstring ended = line + L"\r\n";
  std::string bytes(ended.size() * 3, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, ended.data(), static_cast<int>(ended.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  const std::wstring path = program_folder() + L"\\" + program_name() + L".log";
  const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return;
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(length), &written, nullptr);
  FlushFileBuffers(file);
  CloseHandle(file);
}

void note_start() {
  STARTUPINFOW startup{};
  GetStartupInfoW(&startup);
  std::wstring folder(32768, L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  note(L"start show=" + std::to_wstring(startup.wShowWindow) + L" dir=" + folder + L" line=" + GetCommandLineW());
}

bool quiet() {
  return GetEnvironmentVariableW(L"LUMOTUNE_DEMO_QUIET", nullptr, 0) != 0;
}

void show_text(const std::wstring& caption, const std::wstring& text) {
  WNDCLASSW made{};
  made.lpfnWndProc = text_window;
  made.hInstance = GetModuleHandleW(nullptr);
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  made.lpszClassName = L"LumotuneCompanion";
  RegisterClassW(&made);
  const HWND window = CreateWindowExW(0, made.lpszClassName, caption.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 620, 220, nullptr, nullptr, made.hInstance, nullptr);
  // The text is kept where a screen reader finds it too.
  CreateWindowExW(0, L"STATIC", text.c_str(), WS_CHILD, 0, 0, 0, 0, window, reinterpret_cast<HMENU>(1), made.hInstance,
                  nullptr);
  STARTUPINFOW startup{};
  GetStartupInfoW(&startup);
  ShowWindow(window, (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? startup.wShowWindow : SW_SHOWNORMAL);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0)
    DispatchMessageW(&message);
}

} // namespace companion
