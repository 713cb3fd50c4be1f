// SPDX-License-Identifier: LGPL-2.1-or-later
// What is seen while a stream plays and while none does. Pure.
#pragma once

#include "base/session.h"

#include <string_view>

namespace lumotune::skin {

struct PlayLook {
  bool playing = false; // the button offers to stop
  bool list = false;
  bool display = false;
  bool logo = false;
};

// By the play button's text ("Stop" means playing, letter case ignored) and the kept fields of the skin's lines.
[[nodiscard]] PlayLook play_look(std::wstring_view play_button_text, const base::KeptSkinFields& kept);

} // namespace lumotune::skin
