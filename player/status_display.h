// SPDX-License-Identifier: LGPL-2.1-or-later
// The status display: keeps the labels of the main window in step with the player.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"
#include "base/slot.h"
#include "platform/event_loop.h"
#include "platform/media_player.h"

#include <cstdint>
#include <memory>
#include <string>

namespace lumotune::player {

// Shows the title text: the notification-area icon's tooltip.
struct TitlePort {
  virtual ~TitlePort() = default;
  virtual void show_title(const std::wstring& title) = 0;
};
using TitleSlot = base::Slot<TitlePort>;

// Shown when an address is refused.
inline constexpr const wchar_t* address_refused = L"Tuto adresu nelze otevřít, není to webová stránka.";

// "0:05", "12:03", "1:02:33"; empty for 0, when nothing has been heard yet.
[[nodiscard]] std::wstring elapsed_text(std::uint64_t milliseconds);

// User-interface thread.
class StatusDisplay {
public:
  struct Uses {
    const base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    platform::MediaPlayer& player;
    platform::EventLoop& loop;
  };
  explicit StatusDisplay(const Uses& uses);

  TitleSlot title;

  void start() { aktualizujWMP->start(); }
  void tick(); // once a second
  // Shows a notice in the status line for five seconds instead of the player's text; screen readers announce it.
  void tell(const std::wstring& notice);
  // Whether a notice would be visible: the line is hidden while nothing plays, and a skin may give it no size.
  [[nodiscard]] bool can_tell() const;

  // Shows the player's text with the layout and position that the skin gives it.
  void show_status();

  // The player's notifications.
  void PlayStateChange(int new_state);
  void StatusChange();

private:
  void choose_name();
  void show_name();
  void show_needle();
  void copy_status();

  Uses uses_;
  std::wstring copied_; // the status text of the last notification
  std::wstring notice_;
  int notice_ticks_ = 0; // remaining ticks to show it
  std::unique_ptr<platform::Timer> aktualizujWMP;
};

} // namespace lumotune::player
