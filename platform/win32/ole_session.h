// SPDX-License-Identifier: LGPL-2.1-or-later
// OLE on the user-interface thread: what dragging, the clipboard's objects and the browser control want of it.
#pragma once

#include "platform/win32/win.h"

#include <objbase.h>

#include <ole2.h>

namespace lumotune::platform::win32 {

// Sessions may overlap; the system counts them.
class OleSession {
public:
  OleSession() : entered_(SUCCEEDED(OleInitialize(nullptr))) {}
  OleSession(const OleSession&) = delete;
  OleSession& operator=(const OleSession&) = delete;
  ~OleSession() {
    if (entered_)
      OleUninitialize();
  }
  [[nodiscard]] bool entered() const { return entered_; }

private:
  bool entered_;
};

} // namespace lumotune::platform::win32
