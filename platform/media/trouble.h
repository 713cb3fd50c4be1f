// SPDX-License-Identifier: LGPL-2.1-or-later
// Maps FFmpeg's errors to what a listener is told.
#pragma once

#include "platform/media/stream_status.h"

namespace lumotune::media {

// `error` is an AVERROR. If a server refused the request, `http_code` becomes its status code, as far as FFmpeg keeps
// it (otherwise the first code of its hundred); for other errors it is unchanged. Unknown errors, including Windows'
// own socket errors, count as no answer. Pure.
[[nodiscard]] Trouble trouble_of(int error, int& http_code);

} // namespace lumotune::media
