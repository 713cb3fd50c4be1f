// SPDX-License-Identifier: LGPL-2.1-or-later
// Text over the window's background.
#include "platform/common/glide.h"
#include "platform/win32/colours.h"
#include "platform/win32/controls.h"
#include "platform/win32/dpi.h"

#include <algorithm>
#include <cstddef>

namespace lumotune::platform::win32 {
namespace {

// No label has room for more; line breaking a megabyte would take seconds.
constexpr std::size_t most_drawn = 4000;

constexpr UINT_PTR glide_timer = 1;

} // namespace

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

void Label::set_alignment(Alignment alignment) {
  if (alignment_ == alignment)
    return;
  alignment_ = alignment;
  redraw();
}

void Label::draw(HDC target, const RECT& area) {
  const HGDIOBJ before = SelectObject(target, surface_.font(font_, underline_, bold_));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, colour_ ? colour_ref(*colour_) : surface_.label_colour(kind_, enabled()));
  draw_text(target, area);
  SelectObject(target, before);
  if (kind_ == LabelKind::link)
    draw_focus(target, area);
}

void Label::draw_text(HDC target, const RECT& area) {
  const auto length = static_cast<int>(std::min(text_.size(), most_drawn));
  const UINT side = alignment_ == Alignment::right ? DT_RIGHT : alignment_ == Alignment::centre ? DT_CENTER : DT_LEFT;
  const UINT lines = side | DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL;
  RECT room = area;
  TEXTMETRICW metrics{};
  GetTextMetricsW(target, &metrics);
  SIZE whole{};
  GetTextExtentPoint32W(target, text_.c_str(), length, &whole);
  if (area.bottom < 2 * metrics.tmHeight && whole.cx > area.right) { // one line, and too long for it
    const bool gliding = glides(whole.cx - area.right);
    if (gliding) {
      room.left -= glide_offset_;
      room.right = room.left + whole.cx;
    }
    DrawTextW(target, text_.c_str(), length, &room,
              DT_LEFT | DT_NOPREFIX | DT_SINGLELINE | (gliding ? DT_NOCLIP : DT_END_ELLIPSIS));
    return;
  }
  DrawTextW(target, text_.c_str(), length, &room, lines | DT_END_ELLIPSIS);
  RECT needed{0, 0, area.right, 0};
  if (pointed_to_ != nullptr && pointed_to_->visible())
    draw_arrow(target, area, DrawTextW(target, text_.c_str(), length, &needed, lines | DT_CALCRECT));
}

// Whether the text is still gliding; a new text starts to glide when it is first drawn.
bool Label::glides(int overflow) {
  BOOL animated = TRUE;
  SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animated, 0);
  if (animated == FALSE)
    return false;
  if (glided_ != text_) {
    glided_ = text_;
    glide_start_ = GetTickCount();
    SetTimer(window_, glide_timer, 30, nullptr);
  }
  const GlideStep step =
      glide_step(GetTickCount() - glide_start_, overflow, static_cast<double>(surface_.dpi()) / picture_dpi);
  glide_offset_ = step.offset;
  if (step.over)
    KillTimer(window_, glide_timer);
  return !step.over;
}

// From below the text to the label's lower edge, above the middle of what it points to.
void Label::draw_arrow(HDC target, const RECT& area, int text_height) const {
  const auto scaled = [this](int side) { return MulDiv(side, static_cast<int>(surface_.dpi()), picture_dpi); };
  const TwipsRect there = pointed_to_->rect();
  const int room = static_cast<int>(area.bottom) - text_height;
  if (room < scaled(16) || there.top < place_.top + place_.height)
    return;
  const int wing = scaled(5);
  const int right = static_cast<int>(area.right);
  if (right <= 2 * wing)
    return;
  const int x = std::clamp(pixels(there.left + there.width / 2 - place_.left, surface_.dpi()), wing, right - wing - 1);
  const int foot = static_cast<int>(area.bottom) - scaled(2);
  const int head = std::max(text_height + scaled(6), foot - scaled(26));
  const GdiObject pen(CreatePen(PS_SOLID, scaled(2), GetTextColor(target)));
  const HGDIOBJ before = SelectObject(target, pen.get());
  MoveToEx(target, x, head, nullptr);
  LineTo(target, x, foot);
  MoveToEx(target, x - wing, foot - wing, nullptr);
  LineTo(target, x, foot);
  LineTo(target, x + wing + 1, foot - wing - 1);
  SelectObject(target, before);
}

void Label::notified(WORD code) {
  if (code == STN_CLICKED)
    fire(on_click);
  else if (code == STN_DBLCLK)
    fire(on_double_click);
}

// The static class ignores the keyboard: a link handles Space itself, like a button.
bool Label::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == WM_TIMER && w == glide_timer) {
    if (IsWindowVisible(window_) == FALSE) { // it glides again once it is visible
      KillTimer(window_, glide_timer);
      glided_.clear();
    }
    redraw();
    return true;
  }
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

} // namespace lumotune::platform::win32
