// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/trouble.h"

#include "platform/media/ffmpeg.h"

namespace lumotune::media {
namespace {

// The code that FFmpeg's error stands for; 0 if it is no error page.
int code_of(int error) {
  switch (error) {
  case AVERROR_HTTP_NOT_FOUND:
    return 404;
  case AVERROR_HTTP_UNAUTHORIZED:
    return 401;
  case AVERROR_HTTP_FORBIDDEN:
    return 403;
  case AVERROR_HTTP_BAD_REQUEST:
  case AVERROR_HTTP_OTHER_4XX:
    return 400;
  case AVERROR_HTTP_SERVER_ERROR:
    return 500;
  default:
    return 0;
  }
}

bool ran_out_of_time(int error) {
  return error == AVERROR(ETIMEDOUT) || error == AVERROR_EXIT;
}

Trouble refused(int code, int& http_code) {
  http_code = code;
  return code == 404 ? Trouble::not_found : Trouble::refused_by_server;
}

} // namespace

Trouble trouble_of(int error, const OpenReport& report, int& http_code) {
  constexpr int first_redirection = 300;
  constexpr int first_error = 400;
  if (report.no_such_host)
    return Trouble::no_such_host;
  if (const int code = code_of(error); code != 0)
    return refused(report.http_code >= first_error ? report.http_code : code, http_code);
  if (report.tls_failed && !ran_out_of_time(error))
    return Trouble::not_secure;
  switch (error) {
  case AVERROR(ENOENT):
    return Trouble::not_found;
  case AVERROR(EIO): // also of redirections without end
    return report.http_code >= first_redirection ? refused(report.http_code, http_code) : Trouble::not_answering;
  case AVERROR_INVALIDDATA:
  case AVERROR_EOF:
    // A page of another kind, such as a redirection that leads nowhere.
    if (report.http_code >= first_redirection)
      return refused(report.http_code, http_code);
    return Trouble::unknown_format;
  case AVERROR_STREAM_NOT_FOUND:
  case AVERROR_DECODER_NOT_FOUND:
  case AVERROR_DEMUXER_NOT_FOUND:
  case AVERROR(EINVAL): // a format outside the whitelist
  case AVERROR(EPERM):  // it refers to something it may not reach
  case AVERROR(ENOMEM):
    return Trouble::unknown_format;
  case AVERROR_PROTOCOL_NOT_FOUND:
    return Trouble::unsupported_address;
  default:
    return Trouble::not_answering;
  }
}

} // namespace lumotune::media
