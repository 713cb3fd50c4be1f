// SPDX-License-Identifier: LGPL-2.1-or-later
// The text commands that other programs send to the main window.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/window_messages.h"
#include "player/playback.h"
#include "player/ports.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>

namespace lumotune::player {

// User-interface thread. A command is taken in and answered at once, and carried out by an event of its own, in the
// order of arrival, also while a box or a menu is open: one that comes while another runs waits its turn.
class ClientCommands {
public:
  // A sender that floods us loses its newest commands.
  static constexpr std::size_t max_waiting = 256;
  // A longer command is none; so is one with a longer station identifier or quality.
  static constexpr std::size_t max_command = 16 * 1024; // bytes
  static constexpr std::size_t max_id = 100;            // characters

  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    platform::EventLoop& loop;
    platform::WindowMessages& messages;
    platform::Dialogs& dialogs;
    const platform::AnsiCodec& codec;
    Playback& playback;
    FavouritesPort& favourites;
  };
  explicit ClientCommands(const Uses& uses);

  ChromeSlot chrome;

  // Without the hook nothing is received, and what still waited is dropped.
  void Hook(bool enable);

  // While the program starts, commands are taken in and wait: what the start tunes and plays comes before them, and
  // they have the last word. `release` lets them run. Only "fmax" does not wait while the start asks something: it
  // brings the box forward, for there is no window to be shown yet.
  void hold() { held_ = true; }
  void release();

  // The command of a copy-data message; one whose kind is not 1 is ignored.
  void receive(const platform::CopyData& data);

private:
  void run_waiting();
  void run_more();
  void take(const std::wstring& text);
  void execute(const std::wstring& text);
  void remote_play(const std::wstring& text);

  Uses uses_;
  std::deque<std::wstring> waiting_;
  bool busy_ = false;
  bool held_ = false;
  std::unique_ptr<platform::Waker> waker_;
  std::unique_ptr<platform::Timer> more_; // those that the time did not suffice for
};

} // namespace lumotune::player
