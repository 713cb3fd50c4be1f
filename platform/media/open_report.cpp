// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/open_report.h"

#include "platform/media/ffmpeg.h"

#include <cstdarg>
#include <mutex>
#include <string_view>

namespace lumotune::media {
namespace {

// The log's callback has no argument of its own.
thread_local OpenReport* current = nullptr;

bool is_from(void* context, std::string_view protocol) {
  const AVClass* type = context == nullptr ? nullptr : *static_cast<AVClass**>(context);
  return type != nullptr && type->item_name != nullptr && type->item_name(context) == protocol;
}

// Called by FFmpeg for every message, also those of its inner loops. The format is FFmpeg's own and decides which
// arguments follow; a server's text is at most one of these.
void read_message(void* context, int level, const char* format, va_list arguments) {
  if (current == nullptr)
    return;
  const std::string_view message = format;
  if (message == "http_code=%d\n")
    current->http_code = va_arg(arguments, int);
  else if (message.starts_with("Failed to resolve hostname"))
    current->no_such_host = true;
  else if (level <= AV_LOG_ERROR && is_from(context, "tls"))
    current->tls_failed = true;
}

} // namespace

OpenRecorder::OpenRecorder(OpenReport& report) {
  static std::once_flag installed;
  std::call_once(installed, [] { av_log_set_callback(read_message); });
  report = {};
  current = &report;
}

OpenRecorder::~OpenRecorder() {
  current = nullptr;
}

} // namespace lumotune::media
