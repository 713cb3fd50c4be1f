// SPDX-License-Identifier: LGPL-2.1-or-later
// What the main window draws.
#include "platform/win32/dpi.h"
#include "platform/win32/window.h"

namespace lumotune::platform::win32 {

void Win32Window::paint(HDC target, const RECT& area) {
  const HRGN clip = CreateRectRgnIndirect(&area);
  SelectClipRgn(target, clip);
  DeleteObject(clip);
  draw_ground(target, area);
}

void Win32Window::draw_ground(HDC target, const RECT& area) {
  if (background_.empty())
    FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
  else
    background_.draw(target, 0, 0, pixels(width_, dpi_), pixels(height_, dpi_));
}

// Skins say the colours that differ.
COLORREF Win32Window::label_colour(LabelKind /*kind*/, bool /*enabled*/) const {
  return RGB(0, 0, 0);
}

} // namespace lumotune::platform::win32
