// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/text_box.h"

#include <commctrl.h>

namespace lumotune::platform::win32 {

TextBox::TextBox(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, L"EDIT",
                ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | static_cast<DWORD>(WS_VSCROLL) |
                    static_cast<DWORD>(WS_TABSTOP),
                WS_EX_CLIENTEDGE) {
  SendMessageW(window_, EM_SETLIMITTEXT, 0x7ffffffe, 0);
  ShowScrollBar(window_, SB_VERT, FALSE);
}

// The edit class needs CR LF line ends. Huge texts are cut: nobody reads a megabyte here, and line breaking it takes
// seconds.
std::wstring TextBox::window_text(const std::wstring& text) const {
  constexpr std::size_t most_shown = 20000;
  std::wstring shown;
  for (std::size_t i = 0; i < text.size() && shown.size() < most_shown; ++i) {
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
      continue;
    if (text[i] == L'\n' || text[i] == L'\r')
      shown += L"\r\n";
    else
      shown += text[i] == 0 ? L' ' : text[i];
  }
  return shown;
}

// The scroll bar shortens the lines: it is hidden first and the text measured without it.
void TextBox::show_bar_when_needed() {
  if (measuring_)
    return;
  measuring_ = true;
  ShowScrollBar(window_, SB_VERT, FALSE);
  RECT room{};
  SendMessageW(window_, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  TEXTMETRICW metrics{};
  const HDC dc = GetDC(window_);
  const HGDIOBJ before = SelectObject(dc, surface_.font(LabelFont::normal, false));
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, before);
  ReleaseDC(window_, dc);
  const LRESULT lines = SendMessageW(window_, EM_GETLINECOUNT, 0, 0);
  if (lines * metrics.tmHeight > room.bottom - room.top)
    ShowScrollBar(window_, SB_VERT, TRUE);
  measuring_ = false;
}

bool TextBox::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  switch (message) {
  case WM_SETTEXT:
  case WM_SIZE:
  case WM_SETFONT:
    result = DefSubclassProc(window_, message, w, l);
    show_bar_when_needed();
    return true;
  case WM_GETDLGCODE: // Tab leaves it, and what it holds is not selected when the keyboard comes
    result = DefSubclassProc(window_, message, w, l) & ~(DLGC_WANTALLKEYS | DLGC_WANTTAB | DLGC_HASSETSEL);
    return true;
  case WM_KEYDOWN:
    if (w == VK_ESCAPE)
      return true; // it would close the window
    if (w == 'A' && GetKeyState(VK_CONTROL) < 0) {
      SendMessageW(window_, EM_SETSEL, 0, -1);
      return true;
    }
    return false;
  case WM_CHAR:
    if (w == 1)
      return true; // the character of Ctrl+A
    return ControlOf::handle_message(message, w, l, result);
  default:
    return ControlOf::handle_message(message, w, l, result);
  }
}

} // namespace lumotune::platform::win32
