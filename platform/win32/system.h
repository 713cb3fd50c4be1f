// SPDX-License-Identifier: LGPL-2.1-or-later
// Programs, boxes and facts of the machine.
#pragma once

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/machine.h"
#include "platform/shell.h"
#include "platform/win32/end_watch.h"
#include "platform/win32/running_mark.h"
#include "platform/win32/win.h"

#include <functional>
#include <string>

namespace lumotune::platform::win32 {

class Win32Shell final : public Shell {
public:
  [[nodiscard]] bool start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) override;
  [[nodiscard]] int open(const std::wstring& quoted_target) override;
};

// The end of the program closes a box as "no" does, or as "OK", and no other one opens. Without a window of ours in
// sight a box has none for its owner, and with that a button of its own in the task bar.
class Win32Dialogs final : public Dialogs {
public:
  Win32Dialogs(EventLoop& loop, HWND owner);
  [[nodiscard]] bool bring_forward() override;
  BoxAnswer message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) override;

private:
  EventLoop& loop_;
  HWND owner_;
  EndWatch end_watch_;
};

// Finds out at once, when made, whether another copy of the program runs in this session of the user. Where that copy
// is about to end, the constructor waits for it, 8 seconds at most.
class Win32Machine final : public Machine {
public:
  Win32Machine();
  [[nodiscard]] std::wstring program_folder() const override { return folder_; }
  [[nodiscard]] std::wstring command_line() const override;
  [[nodiscard]] bool previous_instance() const override { return running_.previous(); }
  void begin_end() override;
  [[nodiscard]] std::wstring date_and_time() const override;

  std::function<void()> on_begin_end; // what else is to be done when the end begins; may be unset

private:
  std::wstring folder_;
  RunningMark running_;
};

} // namespace lumotune::platform::win32
