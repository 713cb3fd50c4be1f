// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/quality_backup.h"

#include "base/text.h"

#include <algorithm>

namespace lumotune::player {
namespace {

constexpr std::uint32_t interval_ms = 1000;
constexpr int qualities = 5;

int chosen_quality(const base::Settings& settings) {
  return settings.KvalitaLT.size() == 1 ? settings.KvalitaLT[0] - L'0' : 1;
}

} // namespace

QualityBackup::QualityBackup(const Uses& uses)
    : uses_(uses), timer_(uses.loop.make_timer(interval_ms, [this] { tick(); })) {}

std::vector<OfferedQuality> QualityBackup::offered() const {
  std::vector<OfferedQuality> all;
  const std::wstring& station = uses_.settings.IDlastRadio;
  for (int number = 1; number <= qualities; ++number) {
    const std::wstring digit = std::to_wstring(number);
    const std::wstring label = uses_.stations.RadioInfo(station, L"k" + digit);
    if (!label.empty())
      all.push_back({number, std::clamp(static_cast<int>(base::number_value(label.substr(0, 6))), 0, 100000), label,
                     uses_.stations.RadioInfo(station, L"u" + digit)});
  }
  return all;
}

void QualityBackup::tick() {
  const std::uint32_t now = uses_.loop.tick_count_ms();
  // Another address that is not ours is the listener's own wish, and so is a start.
  if (uses_.playback.stopped() || uses_.playback.starts() != starts_ || uses_.player.url() != watched_) {
    starts_ = uses_.playback.starts();
    watched_ = uses_.player.url();
    round_ = Round::none;
    return clock_.begin(now);
  }
  switch (clock_.look(now, uses_.player.status())) {
  case BackupClock::Finding::works:
    round_ = Round::none;
    break;
  case BackupClock::Finding::gone:
    return stream_is_gone();
  case BackupClock::Finding::nothing:
    break;
  }
  tell_what_plays();
}

// Addresses of other origins than the tuned station have no other qualities.
void QualityBackup::stream_is_gone() {
  const auto& settings = uses_.settings;
  if (round_ == Round::none) {
    if (!uses_.playback.plays_backup()) {
      station_ = settings.IDlastRadio;
      quality_ = settings.KvalitaLT;
      if (uses_.player.url() != uses_.playback.tuned_address())
        return;
    }
    if (settings.IDlastRadio != station_ || settings.KvalitaLT != quality_)
      return; // a client tunes another one, which does not play yet
    left_ = backups_of(chosen_quality(settings), offered());
    std::erase_if(left_, [this](const OfferedQuality& each) { return each.address == uses_.player.url(); });
    round_ = Round::trying;
  }
  if (round_ != Round::trying)
    return;
  told_ = false;
  if (left_.empty()) {
    round_ = Round::over;
    uses_.playback.return_to_chosen();
  } else {
    const OfferedQuality next = left_.front();
    left_.erase(left_.begin());
    uses_.playback.play_backup(next.address, next.label);
    uses_.status.tell(L"Zkouší se náhradní kvalita " + next.label + L" kbps");
  }
  watched_ = uses_.player.url();
  clock_.begin(uses_.loop.tick_count_ms());
}

void QualityBackup::tell_what_plays() {
  if (told_ || !uses_.playback.plays_backup() || uses_.player.status().phase != platform::StreamPhase::playing)
    return;
  told_ = true;
  uses_.status.tell(L"Hraje náhradní kvalita " + uses_.session.backup_quality + L" kbps");
}

} // namespace lumotune::player
