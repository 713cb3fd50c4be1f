// SPDX-License-Identifier: LGPL-2.1-or-later
// Owns the options of one FFmpeg call.
#pragma once

#include "platform/media/ffmpeg.h"

#include <string>

namespace lumotune::media {

class Dictionary {
public:
  Dictionary() = default;
  Dictionary(const Dictionary&) = delete;
  Dictionary& operator=(const Dictionary&) = delete;
  ~Dictionary() { av_dict_free(&entries_); }
  void set(const char* key, const std::string& value) { av_dict_set(&entries_, key, value.c_str(), 0); }
  [[nodiscard]] AVDictionary** out() { return &entries_; }

private:
  AVDictionary* entries_ = nullptr;
};

} // namespace lumotune::media
