// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/trouble.h"

#include "platform/media/ffmpeg.h"

namespace lumotune::media {

Trouble trouble_of(int error, int& http_code) {
  switch (error) {
  case AVERROR_HTTP_NOT_FOUND:
    http_code = 404;
    return Trouble::not_found;
  case AVERROR(ENOENT):
    return Trouble::not_found;
  case AVERROR_HTTP_BAD_REQUEST:
    http_code = 400;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_UNAUTHORIZED:
    http_code = 401;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_FORBIDDEN:
    http_code = 403;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_OTHER_4XX:
    http_code = 400;
    return Trouble::refused_by_server;
  case AVERROR_HTTP_SERVER_ERROR:
    http_code = 500;
    return Trouble::refused_by_server;
  case AVERROR_INVALIDDATA:
  case AVERROR_STREAM_NOT_FOUND:
  case AVERROR_DECODER_NOT_FOUND:
  case AVERROR_DEMUXER_NOT_FOUND:
  case AVERROR_EOF:
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
