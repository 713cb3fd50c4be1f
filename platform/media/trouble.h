// SPDX-License-Identifier: LGPL-2.1-or-later
// FFmpeg's errors as what a listener is told.
#pragma once

#include "platform/media/stream_status.h"

namespace lumotune::media {

// `error` is an AVERROR. Where it is a server's refusal, `http_code` becomes its status code, as far as FFmpeg keeps it
// (the first of its hundred where it does not); otherwise it keeps its value. What is not known here, Windows' own
// socket errors included, counts as no answer. Pure.
[[nodiscard]] Trouble trouble_of(int error, int& http_code);

} // namespace lumotune::media
