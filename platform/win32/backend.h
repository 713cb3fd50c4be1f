// SPDX-License-Identifier: LGPL-2.1-or-later
// The Win32 implementations that the program is built on, in order of construction. User-interface thread.
#pragma once

#include "platform/common/worker_thread.h"
#include "platform/win32/codec.h"
#include "platform/win32/dialogs.h"
#include "platform/win32/event_loop.h"
#include "platform/win32/files.h"
#include "platform/win32/framed_window.h"
#include "platform/win32/machine.h"
#include "platform/win32/messages.h"
#include "platform/win32/shell.h"
#include "platform/win32/tray.h"
#include "platform/win32/window.h"

namespace lumotune::platform::win32 {

struct Backend {
  // `name` is the main window's own; `icon` is the number of the icon in the program's resources.
  Backend(const std::wstring& name, int icon);

  EventLoop loop;
  Codec codec;
  Files files;
  Shell shell;
  Machine machine;
  Window window;
  FramedWindowMaker framed_windows;
  Messages messages;
  Dialogs dialogs;
  WorkerThread worker; // the last: its end waits for work on files under way
};

} // namespace lumotune::platform::win32
