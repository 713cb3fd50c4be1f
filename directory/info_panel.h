// SPDX-License-Identifier: LGPL-2.1-or-later
// The information line of the directory window: types out a message of the server's and obeys a command when clicked.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "companions/command_lines.h"
#include "companions/identity.h"
#include "companions/open_url.h"
#include "companions/send_command.h"
#include "directory/layout.h"
#include "directory/list_radios_form.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/shell.h"

#include <cstddef>
#include <memory>
#include <string>

namespace lumotune::directory {

// Encodes an address as one path segment: "=", "/", "&", "#" and "?" become "*r*", "*l*", "*a*", "*k*" and "*o*". The
// result is also written back to the argument.
std::wstring MakePageRe(std::wstring& vstup);

// User-interface thread. All input comes from the network and is untrusted.
class InfoPanelLine {
public:
  struct Uses {
    ListRadiosForm& form;
    Layout& layout;
    base::Settings& settings;
    platform::EventLoop& loop;
    platform::Dialogs& dialogs;
    platform::Shell& shell;
    const base::ProgramFolder& folder;
    companions::CommandSender& sender;
    companions::Identity& identity;
    companions::WebPages& web;
  };
  explicit InfoPanelLine(const Uses& uses);

  // Longer texts are typed only this far.
  static constexpr std::size_t max_typed = 32767;
  // An action with a longer parameter is ignored.
  static constexpr std::size_t max_parameter = 2000;

  // Fields: "1" for bold, colour, milliseconds a letter (up to 65,535), text, tool tip, action, its parameter. A step
  // whose field is missing, malformed or out of range is skipped.
  void ZobrazInfoPanel(const std::wstring& CommandsG);
  void InfoPanel_Click();
  void InfoPanel_MouseMove() { uses_.form.InfoPanel.set_underline(true); }
  void InfoPanel_MouseDown() { uses_.form.InfoPanel.set_underline(false); }
  void ImageInPan_MouseMove() { uses_.form.InfoPanel.set_underline(false); }
  void close(); // stops typing and ignores further orders

private:
  void TimerInPan_Timer();
  void open_url();
  void show_users();
  void open_browser();

  Uses uses_;
  std::unique_ptr<platform::Timer> TimerInPan;
  std::wstring panel_text_;
  std::wstring panel_action_;
  std::wstring panel_parameter_;
  std::size_t typing_position_ = 0;
  bool closed_ = false;
};

} // namespace lumotune::directory
