// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/visible_controls.h"

namespace lumotune::player {
namespace {

using base::KeptSkinFields;
using base::Panel;

// Deliberate: while playing, the display and the logo are visible even if the skin does not say "show".
bool logo_is_seen(bool playing, const KeptSkinFields& skin) {
  using Seen = KeptSkinFields::LogoSeen;
  if (playing)
    return !skin.logo || skin.logo_seen != Seen::while_stopped;
  return skin.logo && skin.logo_seen != Seen::while_playing;
}

} // namespace

VisibleControls visible_controls(bool playing, Panel panel, const KeptSkinFields& skin) {
  VisibleControls visible;
  // The empty list would cover the hint.
  visible.list = skin.list && !(playing && skin.list_hidden_while_playing) && panel != Panel::hint;
  visible.display = playing || (skin.display && skin.display_while_stopped) ||
                    (panel == Panel::hint && skin.display_behind_empty_list);
  visible.logo = logo_is_seen(playing, skin);
  visible.station_labels = panel == Panel::station || panel == Panel::as_designed;
  visible.hint = panel == Panel::hint || panel == Panel::as_designed;
  return visible;
}

void show_controls(const VisibleControls& visible, base::LumotuneForm& form) {
  form.Control_List.set_visible(visible.list);
  form.LTDisplay.set_visible(visible.display);
  form.Orbwww.set_visible(visible.logo);
  form.InfoName.set_visible(visible.station_labels);
  form.InfoTime.set_visible(visible.station_labels);
  form.InfoStatus.set_visible(visible.station_labels);
  form.InfoNaladit.set_visible(visible.hint);
}

} // namespace lumotune::player
