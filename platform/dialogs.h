// SPDX-License-Identifier: LGPL-2.1-or-later
// Message boxes.
#pragma once

#include <string>

namespace lumotune::platform {

enum class BoxIcon { none, information };
enum class BoxButtons { ok, yes_no };
enum class BoxAnswer { ok, yes, no };

// A box lets events run while it is open: afterwards everything may have changed. User-interface thread.
class Dialogs {
public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // Brings the box that is open to the front, with the keyboard; false when none is.
  [[nodiscard]] virtual bool bring_forward() = 0;

  virtual BoxAnswer message(const std::wstring& text, const std::wstring& title, BoxIcon icon, BoxButtons buttons) = 0;
};

} // namespace lumotune::platform
