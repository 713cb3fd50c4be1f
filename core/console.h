// SPDX-License-Identifier: LGPL-2.1-or-later
// The console: plays an address or sets the volume by typing.
#pragma once

#include "core/playback.h"
#include "core/ports.h"
#include "core/session.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/input_box.h"

#include <string>

namespace lumotune::core {

// User-interface thread.
class Console final : public ConsolePort {
public:
  struct Uses {
    Session& session;
    platform::EventLoop& loop;
    platform::InputBox& input;
    platform::Dialogs& dialogs;
    Playback& playback;
  };
  explicit Console(const Uses& uses) : uses_(uses) {}

  // "help", "vol=" and a number, "url=" and an address; letter case ignored, anything else too. A dot at the end is
  // taken off and opens the console again afterwards. Only one is open at a time; events run meanwhile.
  void LTconsole() override;

private:
  void execute(const std::wstring& command);
  void show_help();

  Uses uses_;
  bool busy_ = false;
};

} // namespace lumotune::core
