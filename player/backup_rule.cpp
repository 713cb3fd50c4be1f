// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/backup_rule.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace lumotune::player {
namespace {

using platform::StreamPhase;
using platform::StreamTrouble;

// Neither another quality nor a wait would help.
bool is_not_the_stations(StreamTrouble trouble) {
  return trouble == StreamTrouble::no_address || trouble == StreamTrouble::unsupported_address ||
         trouble == StreamTrouble::ended || trouble == StreamTrouble::no_device || trouble == StreamTrouble::internal;
}

} // namespace

std::vector<OfferedQuality> backups_of(int chosen, const std::vector<OfferedQuality>& offered) {
  const auto own =
      std::find_if(offered.begin(), offered.end(), [&](const auto& each) { return each.number == chosen; });
  const int rate = own == offered.end() ? 0 : own->kbps;
  std::vector<OfferedQuality> others;
  for (const OfferedQuality& each : offered) {
    const auto same = [&](const OfferedQuality& other) { return other.address == each.address; };
    if (each.number != chosen && !each.address.empty() && (own == offered.end() || !same(*own)) &&
        std::none_of(others.begin(), others.end(), same))
      others.push_back(each);
  }
  const auto distance = [&](const OfferedQuality& each) {
    return rate > 0 ? std::tuple(each.kbps > 0 ? 0 : 1, std::abs(each.kbps - rate), each.kbps)
                    : std::tuple(0, std::abs(each.number - chosen), each.number);
  };
  std::stable_sort(others.begin(), others.end(),
                   [&](const auto& a, const auto& b) { return distance(a) < distance(b); });
  return others;
}

void BackupClock::begin(std::uint32_t now_ms) {
  last_look_ = now_ms;
  gone_since_.reset();
  heard_since_.reset();
}

// A stream that fills its buffer is not gone, but what was gone before is not back either.
BackupClock::Finding BackupClock::look(std::uint32_t now_ms, const platform::StreamStatus& status) {
  if (now_ms - last_look_ > sleep_ms || is_not_the_stations(status.trouble))
    begin(now_ms);
  last_look_ = now_ms;
  if (status.phase == StreamPhase::playing) {
    gone_since_.reset();
    heard_since_ = heard_since_.value_or(now_ms);
    return now_ms - *heard_since_ >= works_ms ? Finding::works : Finding::nothing;
  }
  heard_since_.reset();
  if (status.phase == StreamPhase::stopped || is_not_the_stations(status.trouble)) {
    gone_since_.reset();
    return Finding::nothing;
  }
  gone_since_ = gone_since_.value_or(now_ms);
  const std::uint32_t patience = gone_ms + *gone_since_ % spread_ms; // no two machines count from the same moment
  if (status.phase == StreamPhase::buffering || now_ms - *gone_since_ < patience)
    return Finding::nothing;
  gone_since_ = now_ms;
  return Finding::gone;
}

} // namespace lumotune::player
