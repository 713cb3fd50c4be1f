// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/backend.h"

namespace lumotune::platform::win32 {

Backend::Backend(const std::wstring& name, int icon)
    : window(loop, name, icon),
      framed_windows(loop, icon),
      messages(window.handle(), codec, loop),
      dialogs(loop, window.handle()),
      worker(loop) {}

} // namespace lumotune::platform::win32
