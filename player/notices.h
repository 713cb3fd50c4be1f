// SPDX-License-Identifier: LGPL-2.1-or-later
// Tells the listener something that he must not miss.
#pragma once

#include "platform/dialogs.h"
#include "player/status_display.h"

#include <string>

namespace lumotune::player {

// In the status line, or by a box where that is not visible. Events run while the box is open. User-interface thread.
void tell_or_inform(StatusDisplay& status, platform::Dialogs& dialogs, const std::wstring& text);

} // namespace lumotune::player
