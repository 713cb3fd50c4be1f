// SPDX-License-Identifier: LGPL-2.1-or-later
// The windows of the program, as the probe finds and names them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace probe {

// The window that is meant: the names of its controls stand in its properties behind this word.
extern std::wstring window_name;

// Tabs and line ends become blanks.
[[nodiscard]] std::string utf8(std::wstring text);
[[nodiscard]] std::wstring text_of(HWND window); // empty after two seconds without an answer
[[nodiscard]] std::wstring class_of(HWND window);
// Empty for windows that are not those of `owner`.
[[nodiscard]] std::wstring designer_name(HWND window, const std::wstring& owner = window_name);
[[nodiscard]] std::vector<HWND> top_windows();
[[nodiscard]] std::vector<HWND> children_of(HWND window); // and those below them
// nullptr without one; so is a control.
[[nodiscard]] HWND main_window(const std::wstring& owner = window_name);
[[nodiscard]] HWND control(const wchar_t* name, const std::wstring& owner = window_name);

} // namespace probe
