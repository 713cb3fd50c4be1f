// SPDX-License-Identifier: LGPL-2.1-or-later
// The machine's sound device, through cubeb.
#pragma once

#include "platform/media/output.h"

namespace lumotune::media {

// Create, use and destroy it on one thread with multi-threaded COM (see com_apartment.h).
[[nodiscard]] std::unique_ptr<AudioOutput> make_cubeb_output();

} // namespace lumotune::media
