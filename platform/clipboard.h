// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's clipboard.
#pragma once

#include <string>

namespace lumotune::platform {

// User-interface thread.
class Clipboard {
public:
  Clipboard() = default;
  Clipboard(const Clipboard&) = delete;
  Clipboard& operator=(const Clipboard&) = delete;
  virtual ~Clipboard() = default;

  // Replaces what is there by the text, which ends at its first zero. False when another program holds the clipboard:
  // five attempts within 100 ms, in which nothing else runs.
  [[nodiscard]] virtual bool set_text(const std::wstring& text) = 0;
};

} // namespace lumotune::platform
