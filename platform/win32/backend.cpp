// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/backend.h"

#include <objbase.h>

#include <commctrl.h>

namespace lumotune::platform::win32 {

ComSession::ComSession() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES;
  InitCommonControlsEx(&classes);
}

ComSession::~ComSession() {
  if (entered_)
    CoUninitialize();
}

Backend::Backend(int icon)
    : window(loop, L"Lumotune", icon),
      framed_windows(loop, icon),
      messages(window.handle(), codec),
      dialogs(window.handle()) {}

} // namespace lumotune::platform::win32
