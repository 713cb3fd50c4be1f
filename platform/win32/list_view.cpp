// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/list_view.h"

#include "platform/win32/dpi.h"
#include "platform/win32/rows.h"

#include <windowsx.h>

#include <algorithm>
#include <cwchar>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr UINT message_show_selected = WM_APP + 1;
constexpr std::size_t most_compared = 32767; // characters

} // namespace

ListView::ListView(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, WC_LISTVIEWW,
                LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER |
                    static_cast<DWORD>(WS_TABSTOP),
                WS_EX_CLIENTEDGE),
      columns_dpi_(surface.dpi()) {
  constexpr LPARAM wished = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  SendMessageW(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, static_cast<WPARAM>(wished), wished);
  set_row_height();
}

// Rows are as high as their pictures, and these are as narrow as they can be. The list destroys them at its end.
void ListView::set_row_height() {
  const HIMAGELIST pictures = ImageList_Create(1, pixels(row_height, surface_.dpi()), ILC_COLOR, 0, 1);
  const LRESULT before = SendMessageW(window_, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(pictures));
  if (before != 0)
    ImageList_Destroy(reinterpret_cast<HIMAGELIST>(before));
}

void ListView::set_rows(const RowModel* rows) {
  rows_ = rows;
  rows_changed();
}

void ListView::add_column(const std::wstring& /*key*/, const std::wstring& caption, int width) {
  std::wstring shown = caption; // the record wants writable text
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  column.cx = pixels(width, surface_.dpi());
  column.pszText = shown.data();
  column.iSubItem = columns_;
  SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(columns_), reinterpret_cast<LPARAM>(&column));
  ++columns_;
}

// Scales the current widths, which the user may have changed.
void ListView::dpi_changed() {
  set_row_height();
  ControlOf::dpi_changed();
  for (int i = 0; i < columns_; ++i) {
    const auto width = static_cast<int>(SendMessageW(window_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i), 0));
    SendMessageW(window_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i),
                 MulDiv(width, static_cast<int>(surface_.dpi()), static_cast<int>(columns_dpi_)));
  }
  columns_dpi_ = surface_.dpi();
}

std::size_t ListView::row_count() const {
  constexpr std::size_t most = 100000000; // the system's own limit
  return rows_ == nullptr ? 0 : std::min(rows_->count(), most);
}

// New content is scrolled to its start.
void ListView::rows_changed() {
  select(0);
  point_nowhere();
  SendMessageW(window_, LVM_SETITEMCOUNT, row_count(), 0);
  if (row_count() != 0)
    SendMessageW(window_, LVM_ENSUREVISIBLE, 0, FALSE);
  InvalidateRect(window_, nullptr, TRUE);
}

bool ListView::asked(NMHDR& header, LRESULT& result) {
  switch (header.code) {
  case LVN_GETDISPINFOW:
    answer_text(reinterpret_cast<NMLVDISPINFOW&>(header));
    return true;
  case LVN_ODFINDITEMW:
    result = find_row(reinterpret_cast<const NMLVFINDITEMW&>(header));
    if (typed_ && result >= 0)
      unselect(); // left to the list, this takes as long as its rows are many
    return true;
  case NM_CUSTOMDRAW:
    result = customise(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    return true;
  default:
    return false;
  }
}

// The model may have become shorter since the list last heard of it.
void ListView::answer_text(NMLVDISPINFOW& request) const {
  LVITEMW& item = request.item;
  if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0)
    return;
  item.pszText[0] = 0;
  if (item.iItem < 0 || item.iSubItem < 0 || static_cast<std::size_t>(item.iItem) >= row_count())
    return;
  const std::wstring text =
      rows_->text(static_cast<std::size_t>(item.iItem) + 1, static_cast<std::size_t>(item.iSubItem));
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
  text.copy(item.pszText, length);
  item.pszText[length] = 0;
}

// Most rows differ in the first letter already, and most letters are ASCII: the system is asked about the others.
bool ListView::begins_with(const std::wstring& text, std::wstring_view wanted) {
  const auto small = [](wchar_t letter) {
    return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + 32) : letter;
  };
  if (text.front() < 0x80 && wanted.front() < 0x80 && small(text.front()) != small(wanted.front()))
    return false;
  const auto length = static_cast<int>(wanted.size());
  return CompareStringOrdinal(text.c_str(), length, wanted.data(), length, TRUE) == CSTR_EQUAL;
}

// Type-ahead searches the first column, wrapping around from the given row.
LRESULT ListView::find_row(const NMLVFINDITEMW& request) const {
  const LVFINDINFOW& wanted = request.lvfi;
  const std::size_t count = row_count();
  if (count == 0 || wanted.psz == nullptr || (wanted.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0)
    return -1;
  const std::wstring_view letters(wanted.psz, std::min(std::wcslen(wanted.psz), most_compared));
  const bool whole = (wanted.flags & LVFI_PARTIAL) == 0;
  const std::size_t start = request.iStart < 0 ? 0 : static_cast<std::size_t>(request.iStart) % count;
  std::wstring text(letters.size() + 1, L'\0'); // one more tells a longer text from a whole one
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (start + i) % count;
    const std::size_t size = rows_->beginning(row + 1, text.data(), text.size());
    if (size < letters.size() || (whole && size != letters.size()))
      continue;
    if (letters.empty() || begins_with(text, letters))
      return static_cast<LRESULT>(row);
  }
  return -1;
}

std::size_t ListView::row_at(LPARAM point) const {
  LVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  const LRESULT row = SendMessageW(window_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return row < 0 || static_cast<std::size_t>(row) >= row_count() ? 0 : static_cast<std::size_t>(row) + 1;
}

// The button is told before the row is selected; the click comes after. Beside the rows nothing is pressed.
void ListView::press(MouseButton button, WPARAM keys, LPARAM point) {
  if (GetFocus() != window_)
    SetFocus(window_);
  mouse_pressed(mouse_event(keys, point, button));
  const std::size_t row = row_at(point);
  right_pressed_ = button == MouseButton::right ? row : 0;
  if (row != 0)
    select(row);
  if (row != 0 && button == MouseButton::left)
    fire(on_click);
}

// All of the mouse is ours: the system's own way waits inside a press for what the mouse does next, tells of a click
// beside the rows and lets go of the selection there. A menu that a click opens must not see the button that opened it
// come up: what opens menus is told when the button is let go.
bool ListView::handle_mouse(UINT message, WPARAM w, LPARAM l, LRESULT& /*result*/) {
  switch (message) {
  case WM_MOUSEMOVE:
    point_at(l);
    return false;
  case WM_LBUTTONDOWN:
    press(MouseButton::left, w, l);
    return true;
  case WM_RBUTTONDOWN:
  case WM_RBUTTONDBLCLK:
    press(MouseButton::right, w, l);
    return true;
  case WM_RBUTTONUP: {
    const std::size_t pressed = std::exchange(right_pressed_, 0);
    if (pressed != 0 && pressed == row_at(l))
      fire(on_click);
    return true;
  }
  case WM_LBUTTONDBLCLK: {
    const std::size_t row = row_at(l);
    if (row == 0 || row != selected())
      press(MouseButton::left, w, l);
    double_pressed_ = row;
    return true;
  }
  case WM_LBUTTONUP:
    if (const std::size_t row = std::exchange(double_pressed_, 0); row != 0 && row == row_at(l))
      fire(on_double_click);
    return true;
  default:
    return false;
  }
}

bool ListView::handle_key(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (keys_.let_go(message, w) && selected() != 0) {
    result = DefSubclassProc(window_, message, w, l);
    fire(on_key_up);
    return true;
  }
  if (message != WM_CHAR)
    return false;
  const bool enter = w == VK_RETURN;
  const bool held = (l & 0x40000000) != 0;
  if (enter && held)
    return true;
  typed_ = true;
  result = enter ? 0 : DefSubclassProc(window_, message, w, l);
  typed_ = false;
  fire(on_key_press, static_cast<wchar_t>(w));
  return true;
}

bool ListView::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == WM_NOTIFY) { // from the captions; the list's own fitting looks at every row
    const auto& header = *reinterpret_cast<const NMHEADERW*>(l);
    if (header.hdr.code == HDN_ITEMCHANGEDW || header.hdr.code == HDN_ITEMCHANGEDA) // a column's width
      point_nowhere();
    if (header.hdr.code != HDN_DIVIDERDBLCLICKW && header.hdr.code != HDN_DIVIDERDBLCLICKA)
      return false;
    fit_column(header.iItem);
    return true;
  }
  if (message == WM_MOUSEWHEEL || message == WM_VSCROLL || message == WM_HSCROLL || message == WM_KEYDOWN)
    point_nowhere();
  if (message == WM_PAINT && row_count() == 0 && !empty_text_.empty()) {
    result = DefSubclassProc(window_, message, w, l);
    draw_empty_text();
    return true;
  }
  if (message == WM_WINDOWPOSCHANGED) {
    point_nowhere();
    result = DefSubclassProc(window_, message, w, l);
    RECT room{};
    GetClientRect(window_, &room);
    // What was selected before there was any room is brought into sight as soon as the list has laid itself out.
    if (std::exchange(height_, static_cast<int>(room.bottom)) == 0 && room.bottom != 0)
      PostMessageW(window_, message_show_selected, 0, 0);
    return true;
  }
  if (message == message_show_selected) {
    if (const std::size_t row = selected(); row != 0)
      SendMessageW(window_, LVM_ENSUREVISIBLE, row - 1, FALSE);
    return true;
  }
  if (handle_mouse(message, w, l, result) || handle_key(message, w, l, result))
    return true;
  return ControlOf::handle_message(message, w, l, result);
}

} // namespace lumotune::platform::win32
