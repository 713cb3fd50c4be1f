// SPDX-License-Identifier: LGPL-2.1-or-later
// Turns an address into an open stream: tries a scheme's alternatives, playlists and their entries. Worker thread.
#pragma once

#include "platform/media/attempt.h"
#include "platform/media/current_wish.h"
#include "platform/media/open_budget.h"
#include "platform/media/player_options.h"
#include "platform/media/source.h"
#include "platform/media_player.h"

#include <functional>
#include <string>
#include <vector>

namespace lumotune::media {

class Connector {
public:
  // Plays an open stream until it is over.
  using Play = std::function<Attempt(Source& source)>;

  Connector(const PlayerOptions& options, CurrentWish& wish, Play play);

  // Opens the address and plays the first stream it leads to, within the limits of one `OpenBudget`.
  [[nodiscard]] Attempt connect(const std::string& address, platform::AddressOrigin origin);

private:
  // An address to try, and how many playlists have led to it.
  struct Candidate {
    std::string address;
    platform::AddressOrigin origin = platform::AddressOrigin::station;
    int depth = 0;
  };

  [[nodiscard]] Attempt try_candidate(const Candidate& candidate, OpenBudget& budget);
  [[nodiscard]] Attempt try_entries(const Candidate& list, const std::vector<std::string>& entries, OpenBudget& budget);
  [[nodiscard]] Opened open(const std::string& address, platform::AddressOrigin origin, OpenBudget& budget);
  [[nodiscard]] std::string proxy_for(const std::string& address) noexcept;

  const PlayerOptions options_;
  CurrentWish& wish_;
  Play play_;
  bool ask_retry_after_ = true; // off after a busy server that did not say
};

} // namespace lumotune::media
