// SPDX-License-Identifier: LGPL-2.1-or-later
// The box that asks for one line of text.
#pragma once

#include "platform/input_box.h"
#include "platform/win32/event_loop.h"

#include <optional>
#include <string>

namespace lumotune::platform::win32 {

// The box carries the window property "InputBox.Form", its text "InputBox.Text".
class InputBox final : public platform::InputBox {
public:
  // The owner takes no input while a box is open.
  InputBox(EventLoop& loop, HWND owner) : loop_(loop), owner_(owner) {}

  [[nodiscard]] std::optional<std::wstring> ask(const std::wstring& prompt, const std::wstring& title,
                                                const std::wstring& default_text) override;

private:
  EventLoop& loop_;
  HWND owner_;
  bool open_ = false;
};

} // namespace lumotune::platform::win32
