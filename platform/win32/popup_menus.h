// SPDX-License-Identifier: LGPL-2.1-or-later
// Pop-up menus of the system, opened where the user looks.
#pragma once

#include "platform/popup_menus.h"
#include "platform/win32/end_watch.h"
#include "platform/win32/win.h"

#include <string>
#include <vector>

namespace lumotune::platform::win32 {

class PopupMenus final : public platform::PopupMenus {
public:
  // `owner` has the menus that come without an anchor; the others belong to the anchor's own window.
  PopupMenus(platform::EventLoop& loop, HWND owner);
  PopupMenus(const PopupMenus&) = delete;
  PopupMenus& operator=(const PopupMenus&) = delete;
  ~PopupMenus() override;

  [[nodiscard]] std::wstring pop_up(const std::vector<MenuItem>& items, const Control* anchor) override;

private:
  const platform::EventLoop& loop_;
  HWND owner_;
  HHOOK input_hook_;
  EndWatch end_watch_;
  bool open_ = false;
};

} // namespace lumotune::platform::win32
