// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's clipboard.
#pragma once

#include "platform/clipboard.h"
#include "platform/win32/event_loop.h"

namespace lumotune::platform::win32 {

class Clipboard final : public platform::Clipboard {
public:
  Clipboard(const EventLoop& loop, HWND owner) : loop_(loop), owner_(owner) {}
  [[nodiscard]] bool set_text(const std::wstring& text) override;

private:
  const EventLoop& loop_;
  HWND owner_;
};

} // namespace lumotune::platform::win32
