// SPDX-License-Identifier: LGPL-2.1-or-later
// The main window's list of favourites.
#include "platform/common/list_row.h"
#include "platform/win32/colours.h"
#include "platform/win32/controls.h"
#include "platform/win32/dpi.h"
#include "platform/win32/system_look.h"

#include <cstdint>
#include <string_view>

namespace lumotune::platform::win32 {

ListBox::ListBox(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, L"LISTBOX",
                LBS_NOTIFY | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP) {
  set_colours(background_, text_colour_);
  set_row_height();
}

void ListBox::set_row_height() {
  SendMessageW(window_, LB_SETITEMHEIGHT, 0, static_cast<LPARAM>(pixels(300, surface_.dpi())));
}

void ListBox::dpi_changed() {
  ChildWindow::dpi_changed();
  set_row_height();
}

void ListBox::clear() {
  SendMessageW(window_, LB_RESETCONTENT, 0, 0);
}

void ListBox::add(const std::wstring& item) {
  SendMessageW(window_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
}

// With drawing held: otherwise each item moves the scroll bar and draws the rows anew. The class itself holds it, so
// that a hidden list stays hidden. Its procedure is called straight: the way through our own costs more than the
// adding.
void ListBox::set_items(const std::vector<std::wstring>& items) {
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  clear();
  std::size_t letters = 0;
  for (const std::wstring& item : items)
    letters += item.size() + 1;
  SendMessageW(window_, LB_INITSTORAGE, items.size(), static_cast<LPARAM>(letters * sizeof(wchar_t)));
  const auto own = reinterpret_cast<WNDPROC>(GetClassLongPtrW(window_, GCLP_WNDPROC));
  for (const std::wstring& item : items)
    CallWindowProcW(own, window_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  redraw();
}

std::size_t ListBox::count() const {
  const LRESULT answer = SendMessageW(window_, LB_GETCOUNT, 0, 0);
  return answer < 0 ? 0 : static_cast<std::size_t>(answer);
}

std::wstring ListBox::item(std::size_t index) const {
  if (index >= count())
    return {};
  const LRESULT length = SendMessageW(window_, LB_GETTEXTLEN, index, 0);
  std::wstring text(static_cast<std::size_t>(length < 0 ? 0 : length) + 1, L'\0');
  const LRESULT got = SendMessageW(window_, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got < 0 ? 0 : got));
  return text;
}

std::size_t ListBox::selected() const {
  const LRESULT answer = SendMessageW(window_, LB_GETCURSEL, 0, 0);
  return answer < 0 ? none : static_cast<std::size_t>(answer);
}

void ListBox::select(std::size_t index) {
  SendMessageW(window_, LB_SETCURSEL, index < count() ? index : static_cast<WPARAM>(-1), 0);
}

// The class's own answer names the nearest row for a place below the last one, and knows 65,536 rows.
std::size_t ListBox::item_at(int x, int y) const {
  const POINT place{pixels(x, surface_.dpi()), pixels(y, surface_.dpi())};
  RECT room{};
  GetClientRect(window_, &room);
  const LRESULT height = SendMessageW(window_, LB_GETITEMHEIGHT, 0, 0);
  if (PtInRect(&room, place) == FALSE || height <= 0)
    return none;
  const auto row = static_cast<std::size_t>(SendMessageW(window_, LB_GETTOPINDEX, 0, 0) + place.y / height);
  return row < count() ? row : none;
}

bool ListBox::scrolls() const {
  RECT room{};
  GetClientRect(window_, &room);
  return static_cast<LRESULT>(count()) * SendMessageW(window_, LB_GETITEMHEIGHT, 0, 0) > room.bottom;
}

void ListBox::set_shown_columns(std::size_t columns) {
  shown_columns_ = columns;
  redraw();
}

void ListBox::set_colours(Colour background, Colour text) {
  background_ = background;
  text_colour_ = text;
  brush_.reset(CreateSolidBrush(colour_ref(background)));
  set_scroll_bar_theme(window_, is_dark(colour_ref(background)));
  redraw();
}

void ListBox::notified(WORD code) {
  if (code == LBN_SELCHANGE)
    fire(on_click);
  else if (code == LBN_DBLCLK)
    fire(on_double_click);
}

void ListBox::set_accent(std::optional<Colour> accent) {
  accent_ = accent;
  redraw();
}

void ListBox::set_mark(const std::wstring& data) {
  if (mark_ == data)
    return;
  mark_ = data;
  redraw();
}

bool ListBox::marked(const std::wstring& item) const {
  return !mark_.empty() && item.size() > shown_columns_ && item.compare(shown_columns_, mark_.size(), mark_) == 0;
}

// The selected row has a quiet ground and an edge in the accent.
void ListBox::draw_row(const DRAWITEMSTRUCT& item) {
  const bool has_keyboard = (item.itemState & ODS_FOCUS) != 0;
  if (item.itemID == static_cast<UINT>(-1)) { // of an empty list
    FillRect(item.hDC, &item.rcItem, brush());
    if (has_keyboard)
      draw_focus(item.hDC, item.rcItem);
    return;
  }
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  const RowColours colours = row_colours(colour_ref(background_), colour_ref(text_colour_), chosen);
  const GdiObject ground(CreateSolidBrush(colours.ground));
  FillRect(item.hDC, &item.rcItem, static_cast<HBRUSH>(ground.get()));
  if (chosen) {
    RECT edge = item.rcItem;
    edge.right = edge.left + pixels(45, surface_.dpi());
    const GdiObject accent(CreateSolidBrush(colour_ref(accent_.value_or(text_colour_))));
    FillRect(item.hDC, &edge, static_cast<HBRUSH>(accent.get()));
  }
  draw_row_text(item.hDC, item.rcItem, this->item(item.itemID), chosen);
  if (has_keyboard)
    draw_focus(item.hDC, item.rcItem);
}

// A triangle: what plays, or is about to.
void ListBox::draw_mark(HDC target, POINT left_middle) const {
  const int high = pixels(60, surface_.dpi());
  const POINT corners[] = {{left_middle.x, left_middle.y - high},
                           {left_middle.x + pixels(90, surface_.dpi()), left_middle.y},
                           {left_middle.x, left_middle.y + high}};
  const COLORREF colour = colour_ref(accent_.value_or(text_colour_));
  const GdiObject brush(CreateSolidBrush(colour));
  const GdiObject pen(CreatePen(PS_SOLID, 1, colour));
  const HGDIOBJ brush_before = SelectObject(target, brush.get());
  const HGDIOBJ pen_before = SelectObject(target, pen.get());
  Polygon(target, corners, 3);
  SelectObject(target, pen_before);
  SelectObject(target, brush_before);
}

// The second part keeps its whole width at the right edge; the first one is cut where there is no room. A marked row is
// bold and begins with a triangle, which tells without colour too.
void ListBox::draw_row_text(HDC target, const RECT& row, const std::wstring& item, bool chosen) {
  const RowColours colours = row_colours(colour_ref(background_), colour_ref(text_colour_), chosen);
  const std::wstring shown = item.substr(0, shown_columns_);
  const RowText parts = split_row(shown);
  const bool mark = marked(item);
  const auto scaled = [this](int twips) { return pixels(twips, surface_.dpi()); };
  RECT room = row;
  room.left += scaled(120);
  room.right -= scaled(90);
  const HGDIOBJ before = SelectObject(target, surface_.font(LabelFont::normal, false));
  SetBkMode(target, TRANSPARENT);
  const auto put = [&](std::wstring_view text, std::uint32_t colour, UINT side) {
    SetTextColor(target, colour);
    DrawTextW(target, text.data(), static_cast<int>(text.size()), &room,
              side | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  };
  SIZE second{};
  if (!parts.second.empty())
    GetTextExtentPoint32W(target, parts.second.data(), static_cast<int>(parts.second.size()), &second);
  const bool both = !parts.second.empty() && second.cx < (room.right - room.left) / 2;
  if (both)
    put(parts.second, colours.dim, DT_RIGHT);
  room.right -= both ? second.cx + scaled(90) : 0;
  if (mark) {
    draw_mark(target, {room.left, (row.top + row.bottom) / 2});
    room.left += scaled(150);
  }
  SelectObject(target, surface_.font(LabelFont::normal, false, mark));
  // Where the second part has no room of its own it stays behind the first.
  const std::wstring_view first =
      both ? parts.first : std::wstring_view(shown).substr(0, shown.find_last_not_of(L' ') + 1);
  put(first, mark ? colour_ref(accent_.value_or(text_colour_)) : colours.text, DT_LEFT);
  SelectObject(target, before);
}

} // namespace lumotune::platform::win32
