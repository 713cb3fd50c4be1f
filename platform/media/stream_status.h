// SPDX-License-Identifier: LGPL-2.1-or-later
// The interface's status types under this folder's shorter names.
#pragma once

#include "platform/stream_status.h"

namespace lumotune::media {

using platform::StreamStatus;
using Phase = platform::StreamPhase;
using Trouble = platform::StreamTrouble;

} // namespace lumotune::media
