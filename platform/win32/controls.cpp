// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/controls.h"

namespace lumotune::platform::win32 {

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

} // namespace lumotune::platform::win32
