// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/send_command.h"

#include "base/busy.h"
#include "base/pause.h"

namespace lumotune::companions {

using platform::WindowRef;

void CommandSender::SendCommand(const std::wstring& ProgramFile, const std::wstring& WindowCaption,
                                const std::wstring& Text, std::wstring Mode, const std::wstring& application) {
  constexpr int give_up_at = 10;
  constexpr std::uint32_t retry_after_ms = 1500;
  if (Mode.empty())
    Mode = L"1";
  WindowRef target = WindowRef::none;
  for (int tries = 1;; ++tries) {
    if (tries == give_up_at)
      return;
    uses_.loop.run_pending();
    if (uses_.loop.quitting() && Mode == L"2")
      return;
    target = uses_.messages.find_by_caption(WindowCaption);
    if (target != WindowRef::none)
      break;
    // Failing to start the program does not end the look-ups.
    if (Mode == L"1" || Mode == L"2")
      (void)uses_.shell.start(ProgramFile, application, platform::ShowWindow::normal_focus);
    uses_.loop.run_pending();
    if (Mode != L"2")
      break;
    if (!base::Pause(uses_.loop, retry_after_ms))
      return;
  }
  deliver(target, Text);
}

void CommandSender::show_users(const std::wstring& ProgramFile, const std::wstring& WindowCaption,
                               const std::wstring& Text, const std::wstring& Mode, const std::wstring& application) {
  const base::Busy turn(showing_users_);
  if (!turn)
    return;
  SendCommand(ProgramFile, WindowCaption, Text, Mode, application);
}

void CommandSender::send_to(WindowRef target, const std::wstring& Text) {
  uses_.loop.run_pending();
  deliver(target, Text);
}

// Callers rely on the receiver having handled the text when this returns, unless it hangs or the program has quit.
void CommandSender::deliver(WindowRef target, const std::wstring& Text) {
  uses_.messages.send_copy_data(target, uses_.codec.encode(Text));
  while (uses_.messages.sending() && uses_.loop.wait_a_little()) {
  }
}

} // namespace lumotune::companions
