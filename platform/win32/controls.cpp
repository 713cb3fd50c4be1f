// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/controls.h"

#include "platform/common/button_look.h"
#include "platform/win32/dpi.h"

#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

// A number that the system has no colour for is black.
COLORREF colour_ref(Colour colour) {
  const auto value = static_cast<std::uint32_t>(colour);
  return (value & system_colour_flag) != 0 ? GetSysColor(static_cast<int>(value & 0xff)) : value & 0xffffff;
}

// No label has room for more; line breaking a megabyte would take seconds.
constexpr std::size_t most_drawn = 4000;

} // namespace

PictureBox::PictureBox(Surface& surface, const std::wstring& designer_name, PictureKind kind)
    : ControlOf(surface, designer_name, kind == PictureKind::button ? L"BUTTON" : L"STATIC",
                kind == PictureKind::button ? BS_OWNERDRAW | BS_NOTIFY | WS_TABSTOP : SS_OWNERDRAW | SS_NOTIFY, 0,
                false),
      kind_(kind) {}

bool PictureBox::load_picture(const std::wstring& path) {
  if (!picture_.load(path))
    return false;
  path_ = path;
  resize(twips(picture_.width(), picture_dpi), twips(picture_.height(), picture_dpi));
  redraw();
  return true;
}

void PictureBox::clear_picture() {
  picture_ = {};
  path_.clear();
  resize(0, 0);
}

void PictureBox::draw(HDC target, const RECT& area) {
  if (kind_ == PictureKind::button)
    draw_button(target, area);
  else
    picture_.draw(target, 0, 0, area.right, area.bottom);
}

// The look is made from the pixels that lie behind: they go into memory and come back painted.
void PictureBox::draw_button(HDC target, const RECT& area) {
  const Pixels* picture = picture_.pixels(area.right, area.bottom);
  if (picture == nullptr)
    return;
  std::uint32_t* memory = nullptr;
  const GdiObject bitmap = make_bitmap(area.right, area.bottom, memory);
  const MemoryDc dc(CreateCompatibleDC(nullptr));
  if (bitmap == nullptr || dc == nullptr)
    return;
  const auto buffer = static_cast<HDC>(dc.get());
  const HGDIOBJ before = SelectObject(buffer, bitmap.get());
  BitBlt(buffer, 0, 0, area.right, area.bottom, target, 0, 0, SRCCOPY);
  GdiFlush();
  Pixels shown{static_cast<int>(area.right), static_cast<int>(area.bottom), {memory, memory + picture->values.size()}};
  const ButtonState state{
      .enabled = IsWindowEnabled(window_) != 0,
      .hovered = hovered_,
      .pressed = (SendMessageW(window_, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0,
      .focused = GetFocus() == window_ && surface_.keyboard_used(),
      .closes = closes_,
  };
  paint_button(shown, *picture, state, static_cast<double>(surface_.dpi()) / picture_dpi);
  std::copy(shown.values.begin(), shown.values.end(), memory);
  BitBlt(target, 0, 0, area.right, area.bottom, buffer, 0, 0, SRCCOPY);
  SelectObject(buffer, before);
}

void PictureBox::set_hovered(bool hovered) {
  if (hovered_ == hovered)
    return;
  hovered_ = hovered;
  redraw();
}

// The system tells once that the pointer has gone, when it was asked.
bool PictureBox::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (kind_ == PictureKind::button && message == WM_MOUSEMOVE && !hovered_) {
    TRACKMOUSEEVENT wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = TME_LEAVE;
    wanted.hwndTrack = window_;
    set_hovered(TrackMouseEvent(&wanted) != 0);
  }
  if (message == WM_MOUSELEAVE || (message == WM_SHOWWINDOW && w == FALSE))
    set_hovered(false);
  return ControlOf::handle_message(message, w, l, result);
}

// A quick second click arrives as a double click and presses the button again.
void PictureBox::notified(WORD code) {
  if (kind_ == PictureKind::button && (code == BN_CLICKED || code == BN_DOUBLECLICKED))
    fire(on_click);
  else if (kind_ == PictureKind::decoration && (code == STN_CLICKED || code == STN_DBLCLK))
    fire(on_click);
}

Label::Label(Surface& surface, const std::wstring& designer_name, LabelKind kind, LabelFont font)
    : ControlOf(surface, designer_name, L"STATIC",
                SS_OWNERDRAW | SS_NOTIFY | (kind == LabelKind::link ? static_cast<DWORD>(WS_TABSTOP) : 0U)),
      kind_(kind),
      font_(font) {}

void Label::set_text_colour(Colour colour) {
  if (colour_ == colour)
    return;
  colour_ = colour;
  redraw();
}

void Label::set_underline(bool on) {
  if (underline_ == on)
    return;
  underline_ = on;
  redraw();
}

void Label::set_bold(bool on) {
  if (bold_ == on)
    return;
  bold_ = on;
  redraw();
}

// Raises the event only: annotating the window as a live region as well crashes inside Wine.
void Label::announce() {
  NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, window_, OBJID_CLIENT, CHILDID_SELF);
}

void Label::draw(HDC target, const RECT& area) {
  const HGDIOBJ before = SelectObject(target, surface_.font(font_, underline_, bold_));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, colour_ ? colour_ref(*colour_) : surface_.label_colour(kind_, enabled()));
  RECT room = area;
  DrawTextW(target, text_.c_str(), static_cast<int>(std::min(text_.size(), most_drawn)), &room,
            DT_LEFT | DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS);
  SelectObject(target, before);
  if (kind_ == LabelKind::link)
    draw_focus(target, area);
}

void Label::notified(WORD code) {
  if (code == STN_CLICKED)
    fire(on_click);
  else if (code == STN_DBLCLK)
    fire(on_double_click);
}

// The static class ignores the keyboard: a link handles Space itself, like a button.
bool Label::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (kind_ == LabelKind::link && message == WM_GETDLGCODE) {
    result = DLGC_BUTTON;
    return true;
  }
  if (kind_ == LabelKind::link && message == WM_KEYUP && w == VK_SPACE) {
    fire(on_click);
    return true;
  }
  return ControlOf::handle_message(message, w, l, result);
}

Button::Button(Surface& surface, const std::wstring& designer_name, TabStop tab_stop)
    : ControlOf(surface, designer_name, L"BUTTON",
                BS_PUSHBUTTON | (tab_stop == TabStop::yes ? static_cast<DWORD>(WS_TABSTOP) : 0U)) {}

// A single "&" would underline the letter after it.
std::wstring Button::window_text(const std::wstring& text) const {
  std::wstring doubled;
  for (const wchar_t c : text)
    doubled.append(c == L'&' ? 2U : 1U, c);
  return doubled;
}

void Button::press() {
  if (enabled())
    fire(on_click);
}

void Button::notified(WORD code) {
  if (code == BN_CLICKED)
    fire(on_click);
}

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

void ListBox::set_shown_columns(std::size_t columns) {
  shown_columns_ = columns;
  redraw();
}

void ListBox::set_colours(Colour background, Colour text) {
  background_ = background;
  text_colour_ = text;
  brush_.reset(CreateSolidBrush(colour_ref(background)));
  redraw();
}

void ListBox::notified(WORD code) {
  if (code == LBN_SELCHANGE)
    fire(on_click);
  else if (code == LBN_DBLCLK)
    fire(on_double_click);
}

// The selected row swaps the two colours.
void ListBox::draw_row(const DRAWITEMSTRUCT& item) {
  const bool has_keyboard = (item.itemState & ODS_FOCUS) != 0;
  if (item.itemID == static_cast<UINT>(-1)) { // of an empty list
    FillRect(item.hDC, &item.rcItem, brush());
    if (has_keyboard)
      draw_focus(item.hDC, item.rcItem);
    return;
  }
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  const GdiObject chosen_brush(CreateSolidBrush(colour_ref(text_colour_)));
  FillRect(item.hDC, &item.rcItem, chosen ? static_cast<HBRUSH>(chosen_brush.get()) : brush());
  std::wstring shown = this->item(item.itemID).substr(0, shown_columns_);
  shown.erase(shown.find_last_not_of(L' ') + 1);
  RECT room = item.rcItem;
  room.left += pixels(90, surface_.dpi());
  room.right -= pixels(45, surface_.dpi());
  const HGDIOBJ before = SelectObject(item.hDC, surface_.font(LabelFont::normal, false));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, colour_ref(chosen ? background_ : text_colour_));
  DrawTextW(item.hDC, shown.c_str(), static_cast<int>(shown.size()), &room,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(item.hDC, before);
  if (has_keyboard)
    draw_focus(item.hDC, item.rcItem);
}

} // namespace lumotune::platform::win32
