// SPDX-License-Identifier: LGPL-2.1-or-later
// Message boxes of the system.
#pragma once

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/win32/end_watch.h"
#include "platform/win32/win.h"

#include <string>

namespace lumotune::platform::win32 {

// When the program ends, an open box is answered with "no" or "OK", and no other one opens. While no window of the
// program is visible a box has no owner, which gives it a task-bar button of its own.
class Dialogs final : public platform::Dialogs {
public:
  Dialogs(platform::EventLoop& loop, HWND owner);
  [[nodiscard]] bool bring_forward() override;
  BoxAnswer message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) override;

private:
  platform::EventLoop& loop_;
  HWND owner_;
  EndWatch end_watch_;
};

} // namespace lumotune::platform::win32
