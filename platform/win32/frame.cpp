// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/frame.h"

#include "platform/win32/dpi.h"

#include <commctrl.h>

#include <algorithm>

namespace lumotune::platform::win32 {

Frame::Frame(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, L"BUTTON", BS_GROUPBOX) {}

// A border with a gap for the heading.
void Frame::draw(HDC target, const RECT& area) {
  const HGDIOBJ before = SelectObject(target, surface_.font(LabelFont::normal, false));
  const int gap = pixels(90, surface_.dpi());
  SIZE heading{};
  GetTextExtentPoint32W(target, text_.c_str(), static_cast<int>(text_.size()), &heading);
  RECT line = area;
  line.top += text_.empty() ? 0 : heading.cy / 2;
  if (!text_.empty())
    ExcludeClipRect(target, area.left + gap, area.top, area.left + 3 * gap + heading.cx, area.top + heading.cy);
  FrameRect(target, &line, GetSysColorBrush(COLOR_3DSHADOW));
  SelectClipRgn(target, nullptr);
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, surface_.label_colour(LabelKind::text, enabled()));
  RECT room{area.left + 2 * gap, area.top, area.right - gap, area.bottom};
  DrawTextW(target, text_.c_str(), static_cast<int>(text_.size()), &room,
            DT_LEFT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(target, before);
}

bool Frame::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == WM_PAINT) {
    PAINTSTRUCT painting{};
    const HDC dc = BeginPaint(window_, &painting);
    RECT area{};
    GetClientRect(window_, &area);
    draw_buffered(dc, area);
    EndPaint(window_, &painting);
    return true;
  }
  // The class is transparent to the mouse, but mouse moves over the frame are wanted.
  if (message == WM_NCHITTEST) {
    result = HTCLIENT;
    return true;
  }
  return ControlOf::handle_message(message, w, l, result);
}

ProgressBar::ProgressBar(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, PROGRESS_CLASSW, PBS_SMOOTH) {
  SendMessageW(window_, PBM_SETRANGE32, 0, 100);
}

void ProgressBar::set_percent(int percent) {
  percent_ = std::clamp(percent, 0, 100);
  SendMessageW(window_, PBM_SETPOS, static_cast<WPARAM>(percent_), 0);
}

} // namespace lumotune::platform::win32
