// SPDX-License-Identifier: LGPL-2.1-or-later
// Maps FFmpeg's errors to what a listener is told.
#pragma once

#include "platform/media/open_report.h"
#include "platform/media/stream_status.h"

namespace lumotune::media {

// `error` is an AVERROR, `report` what is known beside it. If a server refused the request, `http_code` becomes its
// status code (without one in the report the first code of its hundred); for other errors it is unchanged. Unknown
// errors, including Windows' own socket errors, count as no answer. Pure.
[[nodiscard]] Trouble trouble_of(int error, const OpenReport& report, int& http_code);

} // namespace lumotune::media
