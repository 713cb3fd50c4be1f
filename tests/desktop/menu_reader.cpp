// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the pop-up menus of the program that it is loaded into: menus belong to their process. The probe has the system
// load it there by a hook, asks by a message to the main window and gets the answer in shared memory.
#include "menu_reader.h"

#include <cwchar>
#include <string>
#include <vector>

namespace {

constexpr UINT get_menu = 0x01E1; // MN_GETHMENU

struct Open {
  HWND window;
  HMENU menu;
};

BOOL CALLBACK note_menu(HWND window, LPARAM all) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (std::wcscmp(name, L"#32768") == 0 && IsWindowVisible(window) != 0)
    reinterpret_cast<std::vector<Open>*>(all)->push_back(
        {window, reinterpret_cast<HMENU>(SendMessageW(window, get_menu, 0, 0))});
  return TRUE;
}

// How many of the open menus lead to this one.
int depth_of(HMENU menu, const std::vector<Open>& all) {
  for (const Open& other : all) {
    for (int i = 0; i < GetMenuItemCount(other.menu); ++i) {
      if (GetSubMenu(other.menu, i) == menu)
        return depth_of(other.menu, all) + 1;
    }
  }
  return 0;
}

// What a user reads: a doubled "&" is shown once.
std::wstring caption_of(HMENU menu, UINT index) {
  wchar_t raw[1024] = {};
  GetMenuStringW(menu, index, raw, 1024, MF_BYPOSITION);
  std::wstring caption;
  for (const wchar_t* c = raw; *c != 0; ++c) {
    caption += *c;
    if (*c == L'&' && c[1] == L'&')
      ++c;
  }
  return caption;
}

std::wstring item_line(const Open& open, int depth, UINT index) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU;
  GetMenuItemInfoW(open.menu, index, TRUE, &info);
  std::wstring kind;
  kind += (info.fType & MFT_SEPARATOR) != 0 ? L"s" : L"";
  kind += (info.fState & MFS_DISABLED) != 0 ? L"g" : L"";
  kind += (info.fState & MFS_CHECKED) != 0 ? L"c" : L"";
  kind += (info.fState & MFS_HILITE) != 0 ? L"h" : L"";
  kind += info.hSubMenu != nullptr ? L"m" : L"";
  RECT place{};
  GetMenuItemRect(open.window, open.menu, index, &place);
  const std::wstring middle =
      std::to_wstring((place.left + place.right) / 2) + L"\t" + std::to_wstring((place.top + place.bottom) / 2);
  return std::to_wstring(depth) + L"\t" + kind + L"\t" + middle + L"\t" + caption_of(open.menu, index) + L"\n";
}

void write_answer() {
  std::vector<Open> all;
  EnumThreadWindows(GetCurrentThreadId(), note_menu, reinterpret_cast<LPARAM>(&all));
  std::wstring text;
  for (const Open& open : all) {
    const int depth = depth_of(open.menu, all);
    for (int i = 0; i < GetMenuItemCount(open.menu); ++i)
      text += item_line(open, depth, static_cast<UINT>(i));
  }
  const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, menu_answer_name);
  if (mapping == nullptr)
    return;
  if (auto* answer = static_cast<wchar_t*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, menu_answer_bytes))) {
    const std::size_t length = text.copy(answer, menu_answer_bytes / sizeof(wchar_t) - 1);
    answer[length] = 0;
    UnmapViewOfFile(answer);
  }
  CloseHandle(mapping);
}

} // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK answer_menu_question(int code, WPARAM w, LPARAM l) {
  static const UINT question = RegisterWindowMessageW(menu_question);
  if (code == HC_ACTION && reinterpret_cast<const CWPSTRUCT*>(l)->message == question)
    write_answer();
  return CallNextHookEx(nullptr, code, w, l);
}
