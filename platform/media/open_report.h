// SPDX-License-Identifier: LGPL-2.1-or-later
// What went wrong in an opening, in more detail than FFmpeg's error codes keep.
#pragma once

namespace lumotune::media {

struct OpenReport {
  int http_code = 0;         // of the last answer, redirections included; 0: there was none
  bool no_such_host = false; // the look-up of a name failed
  bool tls_failed = false;   // an encrypted connection could not be made

  friend bool operator==(const OpenReport&, const OpenReport&) = default;
};

// While it lives, what this thread's FFmpeg calls report is recorded. FFmpeg folds these facts into a few codes and
// tells the whole only to its log, so the log is where they are read; its messages go nowhere else. One at a time.
class OpenRecorder {
public:
  explicit OpenRecorder(OpenReport& report);
  OpenRecorder(const OpenRecorder&) = delete;
  OpenRecorder& operator=(const OpenRecorder&) = delete;
  ~OpenRecorder();
};

} // namespace lumotune::media
