// SPDX-License-Identifier: LGPL-2.1-or-later
// What the keyboard's media keys do.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"
#include "platform/user_input.h"

namespace lumotune::player {

// When false, the keys are left to other programs.
inline constexpr bool media_keys_on = true;

// User-interface thread. The keys press PlayTL; until it is enabled they are left to other programs.
class MediaKeyRule {
public:
  struct Uses {
    base::LumotuneForm& form;
    const base::Session& session;
  };
  explicit MediaKeyRule(const Uses& uses) : uses_(uses) {}

  // Handles the keys from now on, and registers them once something can be played. `keys` must outlive this object's
  // use, and this object the handlers of `keys`.
  void start(platform::MediaKeys& keys, bool on = media_keys_on);
  void can_be_pressed(); // PlayTL is enabled

  void play_pause() { uses_.form.PlayTL.press(); }
  void stop();

private:
  Uses uses_;
  platform::MediaKeys* keys_ = nullptr;
};

} // namespace lumotune::player
