// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the controls, message boxes and menus of the program.
#include "menu_reader.h"
#include "probe_commands.h"
#include "probe_windows.h"

#include <cstdio>
#include <string_view>

namespace probe {
namespace {

void print_control(const std::wstring& name, HWND window, HWND focus) {
  RECT place{};
  GetWindowRect(window, &place);
  const bool own = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  std::printf("%s\t%s\t%d\t%d\t%d\t%ld\t%ld\t%ld\t%ld\t%s\t%d\n", utf8(name).c_str(), utf8(class_of(window)).c_str(),
              own, IsWindowEnabled(window) != 0, window == focus, place.left, place.top, place.right - place.left,
              place.bottom - place.top, utf8(text_of(window)).c_str(),
              (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
}

} // namespace

int print_controls() {
  const HWND form = main_window();
  if (form == nullptr)
    return 1;
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info);
  print_control(L"Form", form, info.hwndFocus);
  for (const HWND child : children_of(form)) {
    if (const std::wstring name = designer_name(child); !name.empty())
      print_control(name, child, info.hwndFocus);
  }
  return 0;
}

int print_boxes() {
  int found = 1;
  for (const HWND box : top_windows()) {
    if (class_of(box) != L"#32770" || IsWindowVisible(box) == 0)
      continue;
    found = 0;
    std::printf("%s", utf8(text_of(box)).c_str());
    for (const HWND child : children_of(box))
      std::printf("\t%s", utf8(text_of(child)).c_str());
    std::printf("\n");
  }
  return found;
}

int print_menus() {
  for (const HWND menu : top_windows()) {
    RECT place{};
    if (class_of(menu) == L"#32768" && IsWindowVisible(menu) != 0 && GetWindowRect(menu, &place) != 0)
      std::printf("%ld\t%ld\t%ld\t%ld\n", place.left, place.top, place.right - place.left, place.bottom - place.top);
  }
  return 0;
}

int print_tips() {
  for (const HWND tip : top_windows()) {
    if (class_of(tip) == L"tooltips_class32" && IsWindowVisible(tip) != 0)
      std::printf("%s\n", utf8(text_of(tip)).c_str());
  }
  return 0;
}

// Has the system load the reader into the program, asks it and prints what it answers.
int print_menu_items() {
  const HWND form = main_window();
  if (form == nullptr)
    return 1; // a hook without a thread would be one of the whole desktop
  const HANDLE mapping =
      CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, menu_answer_bytes, menu_answer_name);
  const auto* answer = static_cast<const wchar_t*>(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, menu_answer_bytes));
  const HMODULE reader = LoadLibraryW(menu_reader_library);
  if (answer == nullptr || reader == nullptr)
    return 2;
  const auto procedure = reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(reader, menu_reader_hook)));
  const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, procedure, reader, GetWindowThreadProcessId(form, nullptr));
  if (hook == nullptr)
    return 1;
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(form, RegisterWindowMessageW(menu_question), 0, 0, SMTO_NORMAL, 5000, &ignored);
  UnhookWindowsHookEx(hook);
  for (std::wstring_view rest = answer; !rest.empty();) {
    const std::size_t end = rest.find(L'\n');
    std::wstring_view line = rest.substr(0, end);
    std::size_t caption = 0; // begins behind the fourth tabulator
    for (int column = 0; column < 4; ++column)
      caption = line.find(L'\t', caption) + 1;
    std::printf("%ls%s\n", std::wstring(line.substr(0, caption)).c_str(),
                utf8(std::wstring(line.substr(caption))).c_str());
    rest.remove_prefix(end + 1);
  }
  return 0;
}

} // namespace probe
