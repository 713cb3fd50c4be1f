// SPDX-License-Identifier: LGPL-2.1-or-later
// Which controls of the main window are seen: by whether something plays, what stands in its middle and the skin.
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

// Makes the window match; the only place that does, but for a skin that is being loaded. User-interface thread.
void show_controls(const VisibleControls& visible, base::LumotuneForm& form);

} // namespace lumotune::player
