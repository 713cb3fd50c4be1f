// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/tip_window.h"

#include <commctrl.h>

#include <utility>

namespace lumotune::platform::win32 {
namespace {

// The system keeps an area of a window by the window and a number.
TTTOOLINFOW area_of(HWND list) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = list;
  tool.uId = 1;
  return tool;
}

} // namespace

HWND make_tip_window() {
  return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                         nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

CellTip::~CellTip() {
  if (window_ != nullptr)
    DestroyWindow(window_);
}

void CellTip::offer(HWND list, const RECT& cell, const std::wstring& text, int width, const MSG& move) {
  withdraw();
  if (window_ == nullptr)
    window_ = make_tip_window();
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, width);
  std::wstring shown = text.substr(0, most_tip_characters); // the record wants writable text
  TTTOOLINFOW tool = area_of(list);
  tool.rect = cell;
  tool.lpszText = shown.data();
  if (SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) == 0)
    return;
  list_ = list;
  // It has not seen the move that led to the offer, and there may be no further one.
  MSG seen = move;
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&seen));
}

// An area that is removed takes what is shown of it along; one that changes under the pointer would not.
void CellTip::withdraw() {
  if (list_ == nullptr)
    return;
  TTTOOLINFOW tool = area_of(std::exchange(list_, nullptr));
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace lumotune::platform::win32
