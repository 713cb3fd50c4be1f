// SPDX-License-Identifier: LGPL-2.1-or-later
// Painting the main window.
#include "platform/win32/dpi.h"
#include "platform/win32/window.h"

namespace lumotune::platform::win32 {

// Double-buffered: the picture may be partly transparent, and the background below it would flicker.
void Window::paint(HDC target, const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0)
    return;
  const MemoryDc buffer(CreateCompatibleDC(target));
  const GdiObject bitmap(CreateCompatibleBitmap(target, width, height));
  const auto dc = static_cast<HDC>(buffer.get());
  const HGDIOBJ before = SelectObject(dc, bitmap.get());
  SetViewportOrgEx(dc, -area.left, -area.top, nullptr);
  draw_ground(dc, area);
  SetViewportOrgEx(dc, 0, 0, nullptr);
  BitBlt(target, area.left, area.top, width, height, dc, 0, 0, SRCCOPY);
  SelectObject(dc, before);
}

// The picture at its own size, whatever the window's; uncovered and transparent parts have the window's colour.
void Window::draw_ground(HDC target, const RECT& area) {
  FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
  const auto own = [this](int side) { return MulDiv(side, static_cast<int>(dpi_), static_cast<int>(picture_dpi)); };
  background_.draw(target, 0, 0, own(background_.width()), own(background_.height()));
}

// Skins set any other colours.
COLORREF Window::label_colour(LabelKind /*kind*/, bool /*enabled*/) const {
  return RGB(0, 0, 0);
}

} // namespace lumotune::platform::win32
