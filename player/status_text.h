// SPDX-License-Identifier: LGPL-2.1-or-later
// Formats the player's status as short Czech text. Pure functions.
#pragma once

#include "platform/stream_status.h"

#include <string>

namespace lumotune::player {

[[nodiscard]] std::wstring state_text(const platform::StreamStatus& status);   // "Připojování..."
[[nodiscard]] std::wstring quality_text(const platform::StreamStatus& status); // "MP3 128 kbps 44,1 kHz"
// "Přehrávání: Artist - Title (128 kbps)"
[[nodiscard]] std::wstring status_text(const platform::StreamStatus& status);
// A warning shown for as long as the station plays: "Neověřený server", or empty.
[[nodiscard]] std::wstring warning_text(const platform::StreamStatus& status);
// In fixed columns: 1-32 the state, padded; 33-54 the quality, padded; from 55 the title, or the state when there is no
// title.
[[nodiscard]] std::wstring Status1(const platform::StreamStatus& status);

} // namespace lumotune::player
