// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/ansi_codec.h"
#include "platform/win32/event_loop.h"
#include "platform/win32/outbox.h"
#include "platform/window_messages.h"

namespace lumotune::platform::win32 {

class Messages final : public WindowMessages {
public:
  Messages(HWND main_window, const AnsiCodec& codec, EventLoop& loop)
      : window_(main_window), codec_(codec), loop_(loop) {}
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;
  ~Messages() override { Hook(false); }

  [[nodiscard]] WindowRef find_by_caption(const std::wstring& caption) const override;
  [[nodiscard]] WindowRef find_copy(const std::wstring& caption) const override;
  void send_copy_data(WindowRef target, std::string_view bytes) override;
  [[nodiscard]] bool sending() const override;
  void let_take_foreground(WindowRef target) override;
  void hook(std::function<void(const CopyData&)> receive) override;

private:
  static LRESULT CALLBACK WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
  void Hook(bool enable);
  void receive(LPARAM record);

  HWND window_;
  const AnsiCodec& codec_;
  EventLoop& loop_;
  Outbox outbox_;
  std::function<void(const CopyData&)> receive_;
  WNDPROC old_procedure_ = nullptr; // kept while the hook is installed
};

} // namespace lumotune::platform::win32
