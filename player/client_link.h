// SPDX-License-Identifier: LGPL-2.1-or-later
// The link to the messenger client and, through its downloader, to the community service: the play report, the reply to
// it, and the request to show who is listening.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "base/settings_files.h"
#include "companions/send_command.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "player/report_programs.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace lumotune::player {

// User-interface thread. Failures are silent. Once the program is ending nothing is reported, asked or removed.
class ClientLink {
public:
  // A longer reply is deleted unread. Otherwise every line that asks a question is shown in full.
  static constexpr std::uint64_t max_reply_bytes = 64 * 1024;

  struct Uses {
    const base::ProgramFolder& folder;
    platform::EventLoop& loop;
    platform::Dialogs& dialogs;
    base::Settings& settings;
    base::SettingsFiles& options;
    companions::CommandSender& sender;
    ReportPrograms& programs;
  };
  explicit ClientLink(const Uses& uses);

  // Sends one report 3 s from now, for the station tuned at that time. A report already due keeps its time.
  void enable_Timer1() { Timer1->start(); }

  // Asks the client to show who is listening to the tuned station. Events run meanwhile.
  void Control_ShowUser_Click();

private:
  void report();
  void look_for_reply();
  void read_reply(std::string_view bytes);
  void ask_about(const std::wstring& new_messages, std::wstring_view text);
  [[nodiscard]] std::wstring reply_file() const;

  Uses uses_;
  bool awaiting_ = false;                  // the last report expects a reply
  std::unique_ptr<platform::Timer> Timer1; // the report
  std::unique_ptr<platform::Timer> Timer2; // looks for the reply
};

} // namespace lumotune::player
