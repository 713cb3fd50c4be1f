// SPDX-License-Identifier: LGPL-2.1-or-later
// Pictures in another size, for monitors with other dots an inch.
#pragma once

#include "platform/common/pixels.h"

namespace lumotune::platform {

// The picture in `width` times `height` pixels, both above 0, by a smooth filter in both directions. Past its edge the
// picture goes on as it ends, so that the edge does not fade. The same size is a plain copy.
[[nodiscard]] Pixels scaled(const Pixels& picture, int width, int height);

} // namespace lumotune::platform
