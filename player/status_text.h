// SPDX-License-Identifier: LGPL-2.1-or-later
// Formats the player's status as short Czech text. Pure functions.
#pragma once

#include "platform/stream_status.h"

#include <string>

namespace lumotune::player {

[[nodiscard]] std::wstring state_text(const platform::StreamStatus& status);   // "Připojování..."
[[nodiscard]] std::wstring quality_text(const platform::StreamStatus& status); // "MP3 128 kbps 44,1 kHz"
// What plays, and in which quality: "Artist - Title · MP3 128 kbps 44,1 kHz"; else the state.
[[nodiscard]] std::wstring status_text(const platform::StreamStatus& status);
// A warning shown for as long as the station plays: "Neověřený server", or empty.
[[nodiscard]] std::wstring warning_text(const platform::StreamStatus& status);
// For a display that shows it from column 33 on once something was heard, and from column 55 on before: 1-32 the state,
// padded; then the same text as above, behind blanks up to column 55 where nothing was `heard` yet.
[[nodiscard]] std::wstring Status1(const platform::StreamStatus& status, bool heard);

} // namespace lumotune::player
