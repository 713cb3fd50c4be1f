// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/ansi_codec.h"
#include "platform/tray.h"
#include "platform/win32/window.h"

#include <shellapi.h>

namespace lumotune::platform::win32 {

class Win32Tray final : public Tray {
public:
  // Events arrive as mouse moves over `receiver`, a hidden control of the window.
  Win32Tray(Win32Window& window, const Control& receiver, const AnsiCodec& codec);
  Win32Tray(const Win32Tray&) = delete;
  Win32Tray& operator=(const Win32Tray&) = delete;
  ~Win32Tray() override;

  void add(const std::wstring& tip) override;
  void modify(const std::wstring& tip) override;
  void remove() override;

private:
  void fill_tip(const std::wstring& tip);

  Win32Window& window_;
  const AnsiCodec& codec_;
  NOTIFYICONDATAA record_{};
  bool added_ = false;
};

} // namespace lumotune::platform::win32
