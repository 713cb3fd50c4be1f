// SPDX-License-Identifier: LGPL-2.1-or-later
// Words the player's status: Czech and short. Pure functions.
#pragma once

#include "platform/stream_status.h"

#include <string>

namespace lumotune::player {

[[nodiscard]] std::wstring state_text(const platform::StreamStatus& status);   // "Připojování..."
[[nodiscard]] std::wstring quality_text(const platform::StreamStatus& status); // "MP3 128 kbps 44,1 kHz"
// "Přehrávání: Artist - Title (128 kbps)"
[[nodiscard]] std::wstring status_text(const platform::StreamStatus& status);
// What the listener should know about the station for as long as it plays: "Neověřený server", or nothing.
[[nodiscard]] std::wstring warning_text(const platform::StreamStatus& status);
// In fixed columns: 1-32 the state, padded; 33-54 the quality, padded; from 55 the title, or the state where there is
// none.
[[nodiscard]] std::wstring Status1(const platform::StreamStatus& status);

} // namespace lumotune::player
