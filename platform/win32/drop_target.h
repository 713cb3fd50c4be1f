// SPDX-License-Identifier: LGPL-2.1-or-later
// Takes what the user drops on a window out of another program.
#pragma once

#include "platform/drop.h"
#include "platform/win32/ole_session.h"
#include "platform/win32/win.h"

#include <functional>
#include <memory>

namespace lumotune::platform::win32 {

// From its making to its end the window takes drops. User-interface thread. Nothing waits: what is dropped is copied
// and handed over while the other program waits for the answer, so the receiver must return at once.
class DropTarget {
public:
  // `point` is where it was dropped, in pixels of the desktop.
  using Taken = std::function<void(Drop drop, POINT point)>;

  DropTarget(HWND window, Taken taken);
  DropTarget(const DropTarget&) = delete;
  DropTarget& operator=(const DropTarget&) = delete;
  ~DropTarget();

private:
  class Object;

  OleSession session_;
  HWND window_;
  Object* object_;
};

} // namespace lumotune::platform::win32
