// SPDX-License-Identifier: LGPL-2.1-or-later
// In-memory windows of other programs, dialogs, shell, tray and machine: they record calls and answer as configured.
#pragma once

#include "platform/common/code_page_1250.h"
#include "platform/common/thread_check.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/machine.h"
#include "platform/memory/modal.h"
#include "platform/shell.h"
#include "platform/tray.h"
#include "platform/window_messages.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

class Messages final : public WindowMessages {
public:
  struct Sent {
    WindowRef target = WindowRef::none;
    std::string bytes;
  };

  [[nodiscard]] WindowRef find_by_caption(const std::wstring& caption) const override;
  [[nodiscard]] WindowRef find_copy(const std::wstring& caption) const override;
  void send_copy_data(WindowRef target, std::string_view bytes) override;
  [[nodiscard]] bool sending() const override;
  void let_take_foreground(WindowRef target) override;
  void hook(std::function<void(const CopyData&)> receive) override;

  // A window of another program appears.
  void add_window(const std::wstring& caption, WindowRef window) { windows_[caption] = window; }
  // The main window of another copy of the program appears; other windows may have the same caption.
  void add_copy(const std::wstring& caption, WindowRef window) { copies_[caption] = window; }
  void remove_window(const std::wstring& caption) { windows_.erase(caption); }
  // Another program sends copy-data: -1 when hooked, 0 otherwise.
  int deliver(const std::string& bytes, std::uint32_t kind = 1);
  [[nodiscard]] bool hooked() const { return static_cast<bool>(receive_); }

  std::vector<Sent> sent;
  mutable int busy_looks = 0; // a receiver that hangs: so many times `sending` answers true
  std::vector<WindowRef> foreground_given;
  mutable std::vector<std::wstring> looked_up;
  std::function<void(const std::wstring& caption)> on_look_up; // lets a test add a window at the n-th look-up

private:
  const ThreadCheck thread_{"user-interface thread"};
  std::map<std::wstring, WindowRef> windows_;
  std::map<std::wstring, WindowRef> copies_;
  std::function<void(const CopyData&)> receive_;
};

class Dialogs final : public platform::Dialogs {
public:
  struct Shown {
    std::wstring text;
    std::wstring title;
    BoxIcon icon = BoxIcon::none;
    BoxButtons buttons = BoxButtons::ok;
  };
  explicit Dialogs(const platform::EventLoop& loop) : loop_(loop) {}
  [[nodiscard]] bool bring_forward() override;
  BoxAnswer message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) override;

  int brought_forward = 0;
  std::vector<Shown> shown;
  std::deque<BoxAnswer> answers;    // consumed in order; when empty: ok, or no to a question
  Modal modal;                      // events while a box is open, followed by:
  std::function<void()> while_open; // a test's further actions

private:
  const platform::EventLoop& loop_;
  int open_ = 0;
};

class Shell final : public platform::Shell {
public:
  struct Started {
    std::wstring command_line;
    std::wstring application;
    ShowWindow show = ShowWindow::normal_focus;
  };
  [[nodiscard]] bool start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) override;
  [[nodiscard]] int open(const std::wstring& quoted_target) override;

  std::vector<Started> started;
  std::vector<std::wstring> opened;
  bool start_works = true;
  int open_answer = 33;
  std::function<void(const Started&)> on_start; // lets a test add the started program's window
};

class Tray final : public platform::Tray {
public:
  void add(const std::wstring& tip) override;
  void modify(const std::wstring& tip) override;
  void remove() override;

  bool added = false;
  std::wstring tip;
  std::size_t modified = 0;

private:
  const ThreadCheck thread_{"user-interface thread"};
};

class Machine final : public platform::Machine {
public:
  [[nodiscard]] std::wstring program_folder() const override { return folder; }
  [[nodiscard]] std::wstring command_line() const override { return arguments; }
  [[nodiscard]] bool previous_instance() const override { return previous; }
  void begin_end() override { ending = true; }
  [[nodiscard]] std::wstring date_and_time() const override { return now; }

  std::wstring folder = L"C:\\Orb";
  std::wstring arguments;
  bool previous = false;
  bool ending = false;
  std::wstring now = L"1. 2. 2024 3:04:05";
};

} // namespace lumotune::platform::memory
