// SPDX-License-Identifier: LGPL-2.1-or-later
// The boxes that tell something and ask nothing.
#pragma once

#include "platform/dialogs.h"

#include <string>

namespace lumotune::base {

// The title of every box that has none of its own. It never equals the main window's caption, by which other programs
// look for that window.
inline constexpr const wchar_t* box_title = L"Lumotune - rádio";

// The standard information box. Events run while it is open.
inline void inform(platform::Dialogs& dialogs, const std::wstring& text) {
  (void)dialogs.message(text, box_title, platform::BoxIcon::information, platform::BoxButtons::ok);
}

} // namespace lumotune::base
