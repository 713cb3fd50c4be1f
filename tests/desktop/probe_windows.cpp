// SPDX-License-Identifier: LGPL-2.1-or-later
#include "probe_windows.h"

#include <string_view>

namespace probe {

std::wstring window_name = L"Lumotune";

namespace {

struct Sought {
  std::wstring prefix;
  std::wstring name;
};

BOOL CALLBACK note_property(HWND, LPWSTR name, HANDLE, ULONG_PTR found) {
  auto& sought = *reinterpret_cast<Sought*>(found);
  // Some properties are named by a number.
  if (reinterpret_cast<ULONG_PTR>(name) > 0xffff && std::wstring_view(name).starts_with(sought.prefix) &&
      std::wstring_view(name) != L"Lumotune.Hook")
    sought.name = name + sought.prefix.size();
  return TRUE;
}

BOOL CALLBACK collect(HWND window, LPARAM all) {
  reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
  return TRUE;
}

} // namespace

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

std::wstring designer_name(HWND window, const std::wstring& owner) {
  Sought sought{owner + L".", {}};
  EnumPropsExW(window, note_property, reinterpret_cast<LPARAM>(&sought));
  return sought.name;
}

std::vector<HWND> top_windows() {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  return all;
}

std::vector<HWND> children_of(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&children));
  return children;
}

HWND main_window(const std::wstring& owner) {
  for (const HWND window : top_windows()) {
    if (designer_name(window, owner) == L"Form")
      return window;
  }
  return nullptr;
}

HWND control(const wchar_t* name, const std::wstring& owner) {
  for (const HWND child : children_of(main_window(owner))) {
    if (designer_name(child, owner) == name)
      return child;
  }
  return nullptr;
}

} // namespace probe
