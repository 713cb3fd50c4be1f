// SPDX-License-Identifier: LGPL-2.1-or-later
// The console: typed commands play an address or set the volume.
#pragma once

#include "base/session.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/input_box.h"
#include "player/playback.h"

#include <string>

namespace lumotune::player {

// User-interface thread.
class Console {
public:
  struct Uses {
    base::Session& session;
    platform::EventLoop& loop;
    platform::InputBox& input;
    platform::Dialogs& dialogs;
    Playback& playback;
  };
  explicit Console(const Uses& uses) : uses_(uses) {}

  // Commands: "help", "vol=" and a number, "url=" and an address; case-insensitive; other input is ignored. A trailing
  // dot is removed and reopens the console afterwards. Only one can be open at a time; events run meanwhile.
  void LTconsole();

private:
  void execute(const std::wstring& command);
  void show_help();

  Uses uses_;
  bool busy_ = false;
};

} // namespace lumotune::player
