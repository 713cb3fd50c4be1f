// SPDX-License-Identifier: LGPL-2.1-or-later
// Scales pictures for monitors with other resolutions.
#pragma once

#include "platform/common/pixels.h"

namespace lumotune::platform {

// The picture in `width` times `height` pixels, both above 0, by a bicubic filter. Edge pixels are
// repeated beyond the edge, so that it does not fade. The same size is a plain copy.
[[nodiscard]] Pixels scaled(const Pixels& picture, int width, int height);

} // namespace lumotune::platform
