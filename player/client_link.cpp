// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/client_link.h"

#include "base/busy.h"
#include "base/options_lines.h"
#include "base/text.h"
#include "companions/command_lines.h"

namespace lumotune::player {
namespace {

constexpr std::uint32_t report_after_ms = 3000;
constexpr std::uint32_t reply_poll_ms = 500;

} // namespace

ClientLink::ClientLink(const Uses& uses)
    : uses_(uses),
      Timer1(uses.loop.make_timer(report_after_ms, [this] { report(); })),
      Timer2(uses.loop.make_timer(reply_poll_ms, [this] { look_for_reply(); })) {}

std::wstring ClientLink::reply_file() const {
  return uses_.folder.path(L"orblt.tt");
}

void ClientLink::report() {
  if (uses_.loop.ending())
    return;
  uses_.options.LoadClientValues();
  uses_.options.LoadOptionsServer();
  uses_.loop.run_pending();
  if (uses_.loop.ending())
    return;
  const bool link_on = !base::equal_ignoring_case(uses_.settings.client_link, L"off");
  awaiting_ = !link_on;
  if (link_on) {
    Timer2->stop(); // the reply to an earlier report is obsolete
    uses_.programs.start_client();
    uses_.programs.start_report(true);
  } else {
    (void)uses_.folder.files().remove(reply_file()); // there may be none
    uses_.loop.run_pending();
    if (uses_.loop.ending())
      return;
    uses_.programs.start_report(false);
    Timer2->start();
  }
  Timer1->stop();
}

void ClientLink::look_for_reply() {
  if (uses_.loop.ending())
    return;
  if (!uses_.folder.files().exists(reply_file()) || uses_.folder.files().being_written(reply_file()))
    return;
  Timer2->stop();
  uses_.loop.run_pending();
  // A report sent meanwhile expects no reply, or polls for its own.
  if (uses_.loop.ending() || !awaiting_ || Timer2->running())
    return;
  const bool too_long = uses_.folder.files().size(reply_file()).value_or(0) > max_reply_bytes;
  std::string bytes;
  if (!too_long && !uses_.folder.files().read_at_most(reply_file(), bytes, max_reply_bytes)) {
    Timer2->start(); // the file is being written again: not ready yet
    return;
  }
  read_reply(bytes);
  uses_.loop.run_pending();
  if (uses_.loop.ending())
    return; // perhaps with questions left unasked
  // The reply to a report sent meanwhile must not be deleted.
  if (!Timer2->running())
    (void)uses_.folder.files().remove(reply_file()); // on failure the next report removes it
}

void ClientLink::read_reply(std::string_view bytes) {
  std::wstring new_messages;
  for (const std::string& line : base::split_text_lines(bytes)) {
    const std::wstring text = uses_.folder.codec().decode(line);
    if (base::starts_with_ignoring_case(text, L"new:"))
      new_messages = base::mid(text, 5);
    if (!base::starts_with_ignoring_case(text, L"inf:"))
      continue;
    ask_about(new_messages, base::mid(text, 5));
    if (uses_.loop.ending())
      return;
  }
}

void ClientLink::ask_about(const std::wstring& new_messages, std::wstring_view text) {
  const std::wstring question = new_messages + L"\r\n" + std::wstring(text) + L"\r\n\r\nChcete zapnout Orb klienta?";
  const auto answer = uses_.dialogs.message(question, L"Nepřečtené zprávy na Orb", platform::BoxIcon::information,
                                            platform::BoxButtons::yes_no);
  if (answer == platform::BoxAnswer::yes && !uses_.loop.ending())
    uses_.sender.SendCommand(companions::client_program, companions::client_caption,
                             L"lt:" + uses_.settings.IDlastRadio, L"1");
}

void ClientLink::Control_ShowUser_Click() {
  uses_.sender.show_users(companions::client_program, companions::client_caption, L"lts:" + uses_.settings.IDlastRadio,
                          L"2");
}

} // namespace lumotune::player
