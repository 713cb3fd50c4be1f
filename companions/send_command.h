// SPDX-License-Identifier: LGPL-2.1-or-later
// Sends text commands to other programs' windows.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/event_loop.h"
#include "platform/shell.h"
#include "platform/window_messages.h"

#include <string>

namespace lumotune::companions {

class CommandSender {
public:
  struct Uses {
    platform::EventLoop& loop;
    platform::WindowMessages& messages;
    platform::Shell& shell;
    const platform::AnsiCodec& codec;
  };
  explicit CommandSender(const Uses& uses) : uses_(uses) {}

  // Sends a command to the window with that caption. Mode "1" (or empty) starts the program once when the window is
  // missing; "2" starts it at every miss and retries every 1500 ms, for at most nine look-ups; any other mode looks
  // once and starts nothing. Returns when the receiver has handled the text or is given up. Runs events meanwhile:
  // another command may be sent before this one returns, and arrives after it. Failures are silent. When the program's
  // name comes from outside, `application` is its full path. User-interface thread.
  void SendCommand(const std::wstring& ProgramFile, const std::wstring& WindowCaption, const std::wstring& Text,
                   std::wstring Mode, const std::wstring& application = {});

  // The same, to show who is listening, for all windows: a call made while another one is in progress, which may take
  // 12 s, is dropped.
  void show_users(const std::wstring& ProgramFile, const std::wstring& WindowCaption, const std::wstring& Text,
                  const std::wstring& Mode, const std::wstring& application = {});

  // Runs events, then sends a command to that window, in the same way; without a window nothing is sent.
  void send_to(platform::WindowRef target, const std::wstring& Text);

private:
  void deliver(platform::WindowRef target, const std::wstring& Text);

  Uses uses_;
  bool showing_users_ = false;
};

} // namespace lumotune::companions
