// SPDX-License-Identifier: LGPL-2.1-or-later
// When another quality of the station is tried in place of the one that is gone, and which. Pure.
#pragma once

#include "platform/stream_status.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::player {

// A quality that the station offers.
struct OfferedQuality {
  int number = 1;     // 1..5
  int kbps = 0;       // 0: unknown
  std::wstring label; // its bit rate as the station file says it
  std::wstring address;
};

// The others in order of nearness to the chosen one: by bit rate, of two equally near the lower one first, which asks
// less of a bad line; by number where the chosen rate is unknown. Without those whose address is another one's or
// empty.
[[nodiscard]] std::vector<OfferedQuality> backups_of(int chosen, const std::vector<OfferedQuality>& offered);

// Watches one stream that is wanted, a look a second.
class BackupClock {
public:
  // So long it must be gone, and up to `spread_ms` more, so that not all listeners of a station that fails ask for the
  // same other stream at once.
  static constexpr std::uint32_t gone_ms = 15000;
  static constexpr std::uint32_t spread_ms = 4000;
  // Having played for so long, a stream counts as one that works.
  static constexpr std::uint32_t works_ms = 60000;
  // A longer pause between two looks was a sleep of the machine, which is no outage of the station.
  static constexpr std::uint32_t sleep_ms = 5000;

  enum class Finding { nothing, gone, works };

  void begin(std::uint32_t now_ms); // another stream, or the same one from its beginning
  // `gone` comes once an outage; a further one takes the same time again.
  [[nodiscard]] Finding look(std::uint32_t now_ms, const platform::StreamStatus& status);

private:
  std::uint32_t last_look_ = 0;
  std::optional<std::uint32_t> gone_since_;
  std::optional<std::uint32_t> heard_since_;
};

} // namespace lumotune::player
