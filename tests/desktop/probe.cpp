// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the windows of the running program from outside, for the desktop tests.
//   probe controls        a line for each control: name, class, visible, enabled, focus, left, top, width, height, text
//   probe items           the items of the favourites list, a line each
//   probe boxes           every message box: caption and texts;   probe press CAPTION  presses a button of a box
//   probe close           asks the main window to close, as the system does
//   probe endsession      tells the main window that the session ends
// Everything is UTF-8 and separated by tabs; tabs and line ends inside texts become blanks.
#include <windows.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string utf8(std::wstring text) {
  for (wchar_t& c : text) {
    if (c == L'\t' || c == L'\r' || c == L'\n')
      c = L' ';
  }
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                                   static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

std::wstring text_of(HWND window) {
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, 2000, &length) == 0)
    return {};
  std::wstring text(length + 1, L'\0');
  DWORD_PTR got = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG, 2000,
                      &got);
  text.resize(got);
  return text;
}

std::wstring class_of(HWND window) {
  wchar_t name[128] = {};
  GetClassNameW(window, name, 128);
  return name;
}

BOOL CALLBACK note_property(HWND, LPWSTR name, HANDLE, ULONG_PTR found) {
  constexpr std::wstring_view prefix = L"Lumotune.";
  // Some properties are named by a number.
  if (reinterpret_cast<ULONG_PTR>(name) > 0xffff && std::wstring_view(name).starts_with(prefix) &&
      std::wstring_view(name) != L"Lumotune.Hook")
    *reinterpret_cast<std::wstring*>(found) = name + prefix.size();
  return TRUE;
}

std::wstring designer_name(HWND window) {
  std::wstring name;
  EnumPropsExW(window, note_property, reinterpret_cast<LPARAM>(&name));
  return name;
}

BOOL CALLBACK collect(HWND window, LPARAM all) {
  reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
  return TRUE;
}

HWND main_window() {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  for (const HWND window : all) {
    if (designer_name(window) == L"Form")
      return window;
  }
  return nullptr;
}

void print_control(const std::wstring& name, HWND window, HWND focus) {
  RECT place{};
  GetWindowRect(window, &place);
  const bool own = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  std::printf("%s\t%s\t%d\t%d\t%d\t%ld\t%ld\t%ld\t%ld\t%s\t%d\n", utf8(name).c_str(), utf8(class_of(window)).c_str(),
              own, IsWindowEnabled(window) != 0, window == focus, place.left, place.top, place.right - place.left,
              place.bottom - place.top, utf8(text_of(window)).c_str(),
              (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
}

int print_controls() {
  const HWND form = main_window();
  if (form == nullptr)
    return 1;
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info);
  print_control(L"Form", form, info.hwndFocus);
  std::vector<HWND> children;
  EnumChildWindows(form, collect, reinterpret_cast<LPARAM>(&children));
  for (const HWND child : children)
    print_control(designer_name(child), child, info.hwndFocus);
  return 0;
}

HWND control(const wchar_t* name) {
  std::vector<HWND> children;
  EnumChildWindows(main_window(), collect, reinterpret_cast<LPARAM>(&children));
  for (const HWND child : children) {
    if (designer_name(child) == name)
      return child;
  }
  return nullptr;
}

int print_items() {
  const HWND list = control(L"Control_List");
  const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0)) + 1,
                      L'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    std::printf("%s\n", utf8(text).c_str());
  }
  return 0;
}

int for_boxes(const wchar_t* button) {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  int found = 1;
  for (const HWND box : all) {
    if (class_of(box) != L"#32770" || IsWindowVisible(box) == 0)
      continue;
    std::vector<HWND> children;
    EnumChildWindows(box, collect, reinterpret_cast<LPARAM>(&children));
    if (button == nullptr) {
      found = 0;
      std::printf("%s", utf8(text_of(box)).c_str());
      for (const HWND child : children)
        std::printf("\t%s", utf8(text_of(child)).c_str());
      std::printf("\n");
      continue;
    }
    for (const HWND child : children) {
      if (text_of(child) == button) {
        PostMessageW(child, BM_CLICK, 0, 0);
        return 0;
      }
    }
  }
  return found;
}

} // namespace

int wmain(int count, wchar_t** words) {
  const std::wstring_view what = count > 1 ? words[1] : L"";
  if (what == L"controls")
    return print_controls();
  if (what == L"items")
    return print_items();
  if (what == L"boxes")
    return for_boxes(nullptr);
  if (what == L"press" && count > 2)
    return for_boxes(words[2]);
  if (what == L"close")
    return PostMessageW(main_window(), WM_CLOSE, 0, 0) != 0 ? 0 : 1;
  if (what == L"endsession") {
    SendMessageW(main_window(), WM_QUERYENDSESSION, 0, 0);
    return PostMessageW(main_window(), WM_ENDSESSION, TRUE, 0) != 0 ? 0 : 1;
  }
  return 2;
}
