// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/media_key_rule.h"

namespace lumotune::player {

void MediaKeyRule::start(platform::MediaKeys& keys, bool on) {
  if (!on)
    return;
  keys.on_play_pause = [this] { play_pause(); };
  keys.on_stop = [this] { stop(); };
  keys_ = &keys;
  if (uses_.form.PlayTL.enabled())
    keys.take();
}

void MediaKeyRule::can_be_pressed() {
  if (keys_ != nullptr)
    keys_->take();
}

// The stop key never starts anything.
void MediaKeyRule::stop() {
  if (uses_.session.playing)
    uses_.form.PlayTL.press();
}

} // namespace lumotune::player
