// SPDX-License-Identifier: LGPL-2.1-or-later
// The list's tips: a text that its cell cuts off is shown whole. The system's own are for the first column only.
#include "platform/win32/dpi.h"
#include "platform/win32/list_view.h"
#include "platform/win32/rows.h"

#include <windowsx.h>

#include <algorithm>

namespace lumotune::platform::win32 {

void ListView::point_at(LPARAM point) {
  LVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  const LRESULT item = SendMessageW(window_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const std::size_t row = item < 0 ? 0 : static_cast<std::size_t>(item) + 1;
  if (row == 0 || row > row_count()) {
    point_nowhere();
    return;
  }
  if (row == pointed_row_ && hit.iSubItem == pointed_column_)
    return;
  point_nowhere();
  pointed_row_ = row;
  pointed_column_ = hit.iSubItem;
  RECT cell{};
  cell.top = hit.iSubItem;
  cell.left = LVIR_LABEL;
  SendMessageW(window_, LVM_GETSUBITEMRECT, row - 1, reinterpret_cast<LPARAM>(&cell));
  RECT room{};
  GetClientRect(window_, &room);
  cell.right = std::min(cell.right, room.right);
  const std::wstring text = rows_->text(row, static_cast<std::size_t>(hit.iSubItem));
  const int margins = 2 * pixels(90, surface_.dpi());
  if (text_width(text, rows_->bold(row)) <= cell.right - cell.left - margins)
    return;
  MSG move{};
  move.hwnd = window_;
  move.message = WM_MOUSEMOVE;
  move.lParam = point;
  tip_.offer(window_, cell, text, pixels(tip_width, surface_.dpi()), move);
}

// What the pointer is over is not known any more: rows or columns have moved under it, or it is beside them.
void ListView::point_nowhere() {
  pointed_row_ = 0;
  tip_.withdraw();
}

} // namespace lumotune::platform::win32
