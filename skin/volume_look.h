// SPDX-License-Identifier: LGPL-2.1-or-later
// Level of the volume picture and of the volume menu's check mark. Pure.
#pragma once

namespace lumotune::skin {

// 0 is level 0, up to 20 percent level 1, ... above 80 level 5; below 0 counts as 0.
[[nodiscard]] constexpr int volume_level(int percent) {
  if (percent <= 0)
    return 0;
  return percent > 80 ? 5 : (percent + 19) / 20;
}

} // namespace lumotune::skin
