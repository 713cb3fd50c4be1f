// SPDX-License-Identifier: LGPL-2.1-or-later
// A picture in a window: a decoration, or a button with the looks of its state.
#include "platform/common/button_look.h"
#include "platform/win32/colours.h"
#include "platform/win32/controls.h"
#include "platform/win32/dpi.h"

#include <algorithm>
#include <cstdint>

namespace lumotune::platform::win32 {

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
  draw_needle(target);
}

void PictureBox::set_neutral(bool neutral) {
  surface_.check_thread();
  if (neutral_ == neutral)
    return;
  neutral_ = neutral;
  redraw();
}

void PictureBox::set_needle(const std::optional<Needle>& needle) {
  surface_.check_thread();
  if (needle_ == needle)
    return;
  needle_ = needle;
  redraw();
}

void PictureBox::draw_needle(HDC target) const {
  if (!needle_)
    return;
  const unsigned dpi = surface_.dpi();
  const int middle = pixels(needle_->middle - place_.left, dpi);
  const int top = pixels(needle_->top - place_.top, dpi);
  const int thick = std::max(1, pixels(30, dpi));
  const RECT line{middle - thick / 2, top, middle - thick / 2 + thick, top + pixels(needle_->height, dpi)};
  const GdiObject brush(CreateSolidBrush(colour_ref(needle_->colour)));
  FillRect(target, &line, static_cast<HBRUSH>(brush.get()));
}

// The look is made from the pixels that lie behind: they go into memory and come back painted.
void PictureBox::draw_button(HDC target, const RECT& area) {
  const Pixels* picture = picture_.pixels(area.right, area.bottom);
  if (picture == nullptr)
    return draw_focus(target, area);
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
      .neutral = neutral_,
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

} // namespace lumotune::platform::win32
