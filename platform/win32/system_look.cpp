// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/system_look.h"

#include <dwmapi.h>
#include <uxtheme.h>

namespace lumotune::platform::win32 {

// The numbers are of Windows 11, whose headers this compiler does not have. An older system refuses them.
void round_corners(HWND window) {
  constexpr DWORD corner_preference = 33;
  const DWORD rounded = 2;
  (void)DwmSetWindowAttribute(window, corner_preference, &rounded, sizeof rounded);
}

// A system that does not know the dark theme keeps the usual one.
void set_scroll_bar_theme(HWND control, bool dark) {
  (void)SetWindowTheme(control, dark ? L"DarkMode_Explorer" : L"Explorer", nullptr);
}

} // namespace lumotune::platform::win32
