// SPDX-License-Identifier: LGPL-2.1-or-later
// What the list draws itself, and how wide its columns have to be.
#include "platform/win32/dpi.h"
#include "platform/win32/list_view.h"
#include "platform/win32/rows.h"

#include <algorithm>

namespace lumotune::platform::win32 {

LRESULT ListView::customise(NMLVCUSTOMDRAW& item) {
  if (item.nmcd.dwDrawStage == CDDS_PREPAINT)
    return CDRF_NOTIFYITEMDRAW;
  if (item.nmcd.dwDrawStage != CDDS_ITEMPREPAINT)
    return CDRF_DODEFAULT;
  const std::size_t row = item.nmcd.dwItemSpec + 1;
  const bool bold = row <= row_count() && rows_->bold(row);
  SelectObject(item.nmcd.hdc, surface_.font(LabelFont::normal, false, bold));
  if (row == selected() && GetFocus() != window_) {
    item.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    item.clrText = GetSysColor(COLOR_WINDOWTEXT);
    item.clrTextBk = resting_selection();
  }
  return CDRF_NEWFONT;
}

void ListView::set_empty_text(const std::wstring& text) {
  surface_.check_thread();
  if (text == empty_text_)
    return;
  empty_text_ = text;
  if (row_count() == 0)
    InvalidateRect(window_, nullptr, TRUE);
}

// Over what the list has drawn; the system's own text for empty lists is newer than some systems.
void ListView::draw_empty_text() const {
  RECT room{};
  GetClientRect(window_, &room);
  RECT header{};
  GetWindowRect(reinterpret_cast<HWND>(SendMessageW(window_, LVM_GETHEADER, 0, 0)), &header);
  const int edge = pixels(150, surface_.dpi());
  room.top += header.bottom - header.top + edge;
  InflateRect(&room, -edge, 0);
  const HDC dc = GetDC(window_);
  const HGDIOBJ before = SelectObject(dc, surface_.font(LabelFont::normal, false));
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  DrawTextW(dc, empty_text_.c_str(), -1, &room, DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, before);
  ReleaseDC(window_, dc);
}

int ListView::text_width(const std::wstring& text, bool bold) const {
  constexpr std::size_t most_measured = 1000; // characters
  const HDC dc = GetDC(window_);
  const HGDIOBJ before = SelectObject(dc, surface_.font(LabelFont::normal, false, bold));
  SIZE size{};
  GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(std::min(text.size(), most_measured)), &size);
  SelectObject(dc, before);
  ReleaseDC(window_, dc);
  return static_cast<int>(size.cx);
}

// In pixels, for the caption and the rows in sight: measuring all rows of a long list would take seconds.
int ListView::needed_width(int column) const {
  std::wstring caption(200, L'\0');
  LVCOLUMNW asked{};
  asked.mask = LVCF_TEXT;
  asked.pszText = caption.data();
  asked.cchTextMax = static_cast<int>(caption.size());
  SendMessageW(window_, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&asked));
  int widest = text_width(caption.c_str(), false);
  const auto first = static_cast<std::size_t>(SendMessageW(window_, LVM_GETTOPINDEX, 0, 0));
  const auto page = static_cast<std::size_t>(SendMessageW(window_, LVM_GETCOUNTPERPAGE, 0, 0)) + 1;
  for (std::size_t row = first + 1; row <= std::min(first + page, row_count()); ++row)
    widest = std::max(widest, text_width(rows_->text(row, static_cast<std::size_t>(column)), rows_->bold(row)));
  return widest + pixels(270, surface_.dpi()); // the room that the list leaves around a text
}

void ListView::fit_column(int column) {
  if (column >= 0 && column < columns_)
    SendMessageW(window_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), needed_width(column));
}

} // namespace lumotune::platform::win32
