// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/text_entry.h"

#include "platform/win32/dpi.h"

#include <commctrl.h>

#include <cstddef>

namespace lumotune::platform::win32 {

TextEntry::TextEntry(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, L"EDIT", ES_AUTOHSCROLL | static_cast<DWORD>(WS_TABSTOP), WS_EX_CLIENTEDGE) {
  SendMessageW(window_, EM_SETLIMITTEXT, max_typed, 0);
}

void TextEntry::set_text(const std::wstring& text) {
  setting_ = true;
  ControlOf::set_text(text);
  setting_ = false;
}

void TextEntry::set_cue(const std::wstring& cue) {
  surface_.check_thread();
  cue_ = cue;
  InvalidateRect(window_, nullptr, TRUE);
}

void TextEntry::take_keyboard() {
  take_focus();
  SendMessageW(window_, EM_SETSEL, 0, -1);
}

void TextEntry::notified(WORD code) {
  if (code != EN_CHANGE || setting_)
    return;
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
  if (text == text_)
    return;
  if (text.empty() || text_.empty())
    InvalidateRect(window_, nullptr, TRUE); // the cue comes or goes
  text_ = text;
  fire(on_change);
}

// Drawn here, because the system's own cue is hidden while the entry has the focus, which is nearly always.
void TextEntry::draw_cue() {
  RECT room{};
  SendMessageW(window_, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  const HDC dc = GetDC(window_);
  const HGDIOBJ before = SelectObject(dc, surface_.font(LabelFont::normal, false));
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  room.left += pixels(30, surface_.dpi()); // beside the caret
  DrawTextW(dc, cue_.c_str(), -1, &room, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(dc, before);
  ReleaseDC(window_, dc);
}

bool TextEntry::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  switch (message) {
  case WM_PAINT:
    result = DefSubclassProc(window_, message, w, l);
    if (text_.empty() && !cue_.empty())
      draw_cue();
    return true;
  case WM_KEYDOWN:
    if (w == 'A' && GetKeyState(VK_CONTROL) < 0) {
      SendMessageW(window_, EM_SETSEL, 0, -1);
      return true;
    }
    if (w != VK_RETURN && w != VK_DOWN)
      return ControlOf::handle_message(message, w, l, result);
    fire(on_enter);
    return true;
  case WM_CHAR: // the characters of Enter, Escape and Ctrl+A, at which it would beep
    return w == VK_RETURN || w == VK_ESCAPE || w == 1 || ControlOf::handle_message(message, w, l, result);
  default:
    return ControlOf::handle_message(message, w, l, result);
  }
}

} // namespace lumotune::platform::win32
