// SPDX-License-Identifier: LGPL-2.1-or-later
// Text commands to other programs' windows.
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

  // Delivers one command to the window of that caption. Mode "1" (or empty) starts the program once when the window is
  // missing; "2" starts it at every miss and retries each 1500 ms, nine look-ups at most; any other mode looks once and
  // starts nothing. Events run meanwhile. Failures are silent. A program that a text from outside names comes with its
  // full path as `application`. User-interface thread.
  void SendCommand(const std::wstring& ProgramFile, const std::wstring& WindowCaption, const std::wstring& Text,
                   std::wstring Mode, const std::wstring& application = {});

  // The same for a wish to see who listens, whichever window it comes from: while one is on its way, which may take
  // 12 s, another one is dropped.
  void show_users(const std::wstring& ProgramFile, const std::wstring& WindowCaption, const std::wstring& Text,
                  const std::wstring& Mode, const std::wstring& application = {});

  // Delivers one command to that window, events first. No window: nothing is sent.
  void send_to(platform::WindowRef target, const std::wstring& Text);

private:
  Uses uses_;
  bool showing_users_ = false;
};

} // namespace lumotune::companions
