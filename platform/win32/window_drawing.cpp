// SPDX-License-Identifier: LGPL-2.1-or-later
// What the main window draws and what depends on the resolution: background, fonts, tool tips.
#include "platform/win32/dpi.h"
#include "platform/win32/window.h"

#include <commctrl.h>

#include <cwchar>

namespace lumotune::platform::win32 {

void Win32Window::paint(HDC target, const RECT& area) {
  const int width = pixels(width_, dpi_);
  const int height = pixels(height_, dpi_);
  const HRGN clip = CreateRectRgnIndirect(&area);
  SelectClipRgn(target, clip);
  DeleteObject(clip);
  if (background_.empty())
    FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
  else
    background_.draw(target, 0, 0, width, height);
}

// The background, and over it the decorations below the control.
void Win32Window::draw_behind(HDC target, HWND control) {
  RECT area{};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&area), 2);
  POINT origin{};
  SetViewportOrgEx(target, -area.left, -area.top, &origin);
  if (background_.empty())
    FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
  else
    background_.draw(target, 0, 0, pixels(width_, dpi_), pixels(height_, dpi_));
  for (Win32Picture* picture : pictures_) {
    if (picture->kind() != PictureKind::decoration || !picture->visible() || picture->handle() == control)
      continue;
    RECT place{};
    RECT both{};
    GetWindowRect(picture->handle(), &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    if (IntersectRect(&both, &place, &area) == 0)
      continue;
    SetViewportOrgEx(target, place.left - area.left, place.top - area.top, nullptr);
    picture->draw(target, RECT{0, 0, place.right - place.left, place.bottom - place.top});
  }
  SetViewportOrgEx(target, origin.x, origin.y, nullptr);
}

// The system's message font, at the size of this monitor; headings are larger and bolder.
HFONT Win32Window::font(LabelFont kind, bool underline, bool bold) {
  GdiObject& kept = fonts_[(bold ? 4U : 0U) + (kind == LabelFont::heading ? 2U : 0U) + (underline ? 1U : 0U)];
  if (kept != nullptr)
    return static_cast<HFONT>(kept.get());
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  LOGFONTW wished{};
  if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi_) != 0)
    wished = metrics.lfMessageFont;
  else
    wcscpy(wished.lfFaceName, L"Segoe UI");
  wished.lfHeight = -pixels(kind == LabelFont::heading ? 250 : 180, dpi_); // 12.5 and 9 points
  wished.lfWeight = bold ? FW_BOLD : kind == LabelFont::heading ? FW_SEMIBOLD : FW_NORMAL;
  wished.lfUnderline = underline ? TRUE : FALSE;
  kept.reset(CreateFontIndirectW(&wished));
  return static_cast<HFONT>(kept.get());
}

void Win32Window::set_tip(HWND control, const std::wstring& text) {
  std::wstring shown = text; // the record wants writable text
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = shown.data();
  // Adding a tool that is there already changes nothing; the text is set in either case.
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tips_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Win32Window::change_dpi(unsigned dpi) {
  if (dpi == 0 || dpi == dpi_)
    return;
  dpi_ = dpi;
  for (const auto& child : children_)
    SendMessageW(child->handle(), WM_SETFONT, 0, FALSE); // the old fonts go
  for (GdiObject& kept : fonts_)
    kept.reset();
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, pixels(6000, dpi_));
  for (const auto& child : children_)
    child->dpi_changed();
  apply_size();
}

} // namespace lumotune::platform::win32
