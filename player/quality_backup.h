// SPDX-License-Identifier: LGPL-2.1-or-later
// Plays another quality of the tuned station while the chosen one is gone.
#pragma once

#include "base/session.h"
#include "platform/event_loop.h"
#include "platform/media_player.h"
#include "player/backup_rule.h"
#include "player/playback.h"
#include "player/status_display.h"
#include "stations/station_lookup.h"

#include <memory>
#include <string>
#include <vector>

namespace lumotune::player {

// User-interface thread. Each quality is tried once, nearest first, then the chosen one again, which stays until the
// stream has worked or the listener presses a button: a station that is away as a whole, or a line that is, is asked no
// more often than by the engine's own back-off and four further addresses. The settings keep the chosen quality.
class QualityBackup {
public:
  struct Uses {
    const base::Settings& settings;
    const base::Session& session;
    const platform::MediaPlayer& player;
    platform::EventLoop& loop;
    stations::StationLookup& stations;
    Playback& playback;
    StatusDisplay& status;
  };
  explicit QualityBackup(const Uses& uses);

  void start() { timer_->start(); }
  void tick(); // once a second

private:
  enum class Round { none, trying, over };

  void stream_is_gone();
  void tell_what_plays();
  [[nodiscard]] std::vector<OfferedQuality> offered() const;

  Uses uses_;
  BackupClock clock_;
  unsigned starts_ = 0;
  std::wstring station_; // whose qualities are tried, and the chosen one of them
  std::wstring quality_;
  std::wstring watched_; // the address that the clock counts for
  Round round_ = Round::none;
  std::vector<OfferedQuality> left_; // of this round, the next one first
  bool told_ = false;                // that the backup plays
  std::unique_ptr<platform::Timer> timer_;
};

} // namespace lumotune::player
