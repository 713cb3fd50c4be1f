// SPDX-License-Identifier: LGPL-2.1-or-later
// The looks of a picture button, all made from its one picture. Pure.
#pragma once

#include "platform/common/pixels.h"

namespace lumotune::platform {

struct ButtonState {
  bool enabled = true; // one that is not is neither hovered nor pressed
  bool hovered = false;
  bool pressed = false;
  bool focused = false; // by the keyboard
  bool neutral = false; // without its red: what that warns of is not to be had just now
  bool closes = false;  // its ground under the pointer is red
};

// Paints `picture` over `behind`, which has the same size and is opaque. `scale`: pixels to one of the artist's, 1 at
// 96 dots an inch. In the normal state the picture is blended and nothing else.
//
// A picture that covers half of its area is a body: it gets lighter under the pointer (darker when it is white), and
// the ring of the focus follows its outline. Any other is a sign on a ground of its own, a rounded rectangle.
void paint_button(Pixels& behind, const Pixels& picture, const ButtonState& state, double scale);

} // namespace lumotune::platform
