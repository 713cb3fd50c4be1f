// SPDX-License-Identifier: LGPL-2.1-or-later
// What the keyboard's keys for players do.
#pragma once

#include "core/playback.h"
#include "platform/user_input.h"

namespace lumotune::core {

// Off leaves the keys to other programs.
inline constexpr bool media_keys_on = true;

// User-interface thread. The keys press PlayTL, which does nothing while it is disabled.
class MediaKeyRule {
public:
  struct Uses {
    LumotuneForm& form;
    const Playback& playback;
  };
  explicit MediaKeyRule(const Uses& uses) : uses_(uses) {}

  // Takes the keys and answers them from now on; this object outlives `keys`' handlers.
  void start(platform::MediaKeys& keys, bool on = media_keys_on);

  void play_pause() { uses_.form.PlayTL.press(); }
  void stop();

private:
  Uses uses_;
};

} // namespace lumotune::core
