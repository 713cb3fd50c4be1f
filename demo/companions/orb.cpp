// SPDX-License-Identifier: LGPL-2.1-or-later
// Stands in for the messenger client: owns the communication window, shows and logs what it receives, and sends the
// player every command it knows.
//   orb.exe               shows its window
//   orb.exe m             starts minimised, as the player starts it
//   orb.exe --send TEXT   sends one command to the player and ends; the exit code is 0 when it was answered
#include "demo/companions/copy_data.h"
#include "demo/companions/note.h"

#include <windows.h>

#include <array>

namespace {

constexpr const wchar_t* communication_caption = L"Orb - Lumotune";
constexpr const wchar_t* player_caption = L"Lumotune";
constexpr int list_id = 100;
constexpr int text_id = 101;
constexpr int send_id = 102;
constexpr int first_button_id = 200;

constexpr std::array<const wchar_t*, 8> commands = {
    L"play",  L"list",      L"fmax", L"id:LUMO02",
    L"idk:1", L"id:lumo03", L"idk:", L"remoteplay/@/NIKDE1/@/1/@//@/Z klienta"};

std::wstring wide(const char* bytes, DWORD length) {
  std::wstring text(length, L'\0');
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_ACP, 0, bytes, static_cast<int>(length), text.data(), static_cast<int>(text.size()))));
  return text;
}

// The player's answer; 0 when there is no player or it does not answer.
long send(HWND from, const std::wstring& text) {
  const HWND player = FindWindowW(nullptr, player_caption);
  if (player == nullptr) {
    companion::note(L"no window is captioned Lumotune");
    return 0;
  }
  const auto answer = companion::send_text(player, from, companion::ansi(text), 5000);
  if (!answer)
    companion::note(L"the player did not answer, error " + std::to_wstring(GetLastError()));
  return static_cast<long>(answer.value_or(0));
}

void show_line(HWND window, const std::wstring& text) {
  const HWND list = GetDlgItem(window, list_id);
  const LRESULT row = SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
}

HWND& shown_window() {
  static HWND window = nullptr;
  return window;
}

LRESULT CALLBACK communication(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message != WM_COPYDATA)
    return DefWindowProcW(window, message, w, l);
  const auto* record = reinterpret_cast<const COPYDATASTRUCT*>(l);
  const std::wstring text = wide(static_cast<const char*>(record->lpData), record->cbData);
  companion::note(L"received kind=" + std::to_wstring(record->dwData) + L" text=" + text);
  show_line(shown_window(), L"přijato: " + text);
  if (text == L"orbend")
    PostQuitMessage(0);
  return -1;
}

void make_controls(HWND window) {
  const auto make = [&](const wchar_t* kind, const wchar_t* text, DWORD style, int x, int y, int width, int id) {
    const HWND made =
        CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, x, y, width, id == list_id ? 140 : 26, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  };
  make(L"LISTBOX", L"", WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, 10, 10, 460, list_id);
  make(L"EDIT", L"p:", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 160, 350, text_id);
  make(L"BUTTON", L"Odeslat", WS_TABSTOP, 370, 160, 100, send_id);
  for (int i = 0; i < static_cast<int>(commands.size()); ++i)
    make(L"BUTTON", commands[static_cast<std::size_t>(i)], WS_TABSTOP, 10 + i % 3 * 155, 196 + i / 3 * 32, 150,
         first_button_id + i);
}

LRESULT CALLBACK shown(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_CREATE) {
    make_controls(window);
  } else if (message == WM_COMMAND && HIWORD(w) == BN_CLICKED && LOWORD(w) >= send_id) {
    std::array<wchar_t, 1024> typed{};
    GetDlgItemTextW(window, text_id, typed.data(), static_cast<int>(typed.size()));
    const int index = LOWORD(w) - first_button_id;
    const std::wstring text = index < 0 ? typed.data() : commands[static_cast<std::size_t>(index)];
    show_line(window, L"odesláno: " + text + L" (" + std::to_wstring(send(window, text)) + L")");
  } else if (message == WM_CLOSE) {
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcW(window, message, w, l);
}

HWND make_window(const wchar_t* name, WNDPROC procedure, const wchar_t* caption, DWORD style) {
  WNDCLASSW made{};
  made.lpfnWndProc = procedure;
  made.hInstance = GetModuleHandleW(nullptr);
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  made.lpszClassName = name;
  RegisterClassW(&made);
  return CreateWindowExW(0, name, caption, style, CW_USEDEFAULT, CW_USEDEFAULT, 500, 340, nullptr, nullptr,
                         made.hInstance, nullptr);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  const std::wstring line = companion::arguments();
  constexpr std::wstring_view send_option = L"--send ";
  if (line.starts_with(send_option)) {
    std::wstring text = line.substr(send_option.size());
    if (text.size() > 1 && text.front() == L'"' && text.back() == L'"')
      text = text.substr(1, text.size() - 2); // a shell's quotation marks around a text with blanks
    const long answer = send(nullptr, text);
    companion::note(L"sent answer=" + std::to_wstring(answer) + L" text=" + text);
    return answer != 0 ? 0 : 1;
  }
  companion::note_start();
  if (FindWindowW(nullptr, communication_caption) != nullptr)
    return 0; // the client runs already
  shown_window() = make_window(L"OrbDemo", shown, L"Orb (ukázka)", WS_OVERLAPPEDWINDOW);
  make_window(L"OrbDemoCommunication", communication, communication_caption, WS_OVERLAPPED);
  companion::note(L"ready");
  if (!companion::quiet())
    ShowWindow(shown_window(), line == L"m" ? SW_SHOWMINNOACTIVE : SW_SHOWNORMAL);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (IsDialogMessageW(shown_window(), &message) == 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  companion::note(L"end");
  return 0;
}
