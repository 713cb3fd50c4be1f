// SPDX-License-Identifier: LGPL-2.1-or-later
// Which controls of the main window are visible, depending on playback, the panel shown and the skin.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"

namespace lumotune::player {

struct VisibleControls {
  bool list = false;
  bool display = false;
  bool logo = false;
  bool station_labels = false; // InfoName, InfoTime and InfoStatus
  bool hint = false;           // InfoNaladit

  bool operator==(const VisibleControls&) const = default;
};

// Pure.
[[nodiscard]] VisibleControls visible_controls(bool playing, base::Panel panel, const base::KeptSkinFields& skin);

// Applies it to the window; the only place that does so, except while a skin is loading. User-interface thread.
void show_controls(const VisibleControls& visible, base::LumotuneForm& form);

} // namespace lumotune::player
