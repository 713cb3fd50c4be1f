// SPDX-License-Identifier: LGPL-2.1-or-later
// The icon in the notification area.
#pragma once

#include <string>

namespace lumotune::platform {

// Its events arrive as mouse moves over the control it was created for, with the message number as the horizontal
// coordinate. The icon is added again automatically when the shell restarts. User-interface thread; failures are
// ignored.
class Tray {
public:
  // Maximum length of the tooltip, in characters.
  static constexpr std::size_t max_tip = 63;

  Tray() = default;
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;
  virtual ~Tray() = default;

  virtual void add(const std::wstring& tip) = 0;
  virtual void modify(const std::wstring& tip) = 0; // cut to `max_tip`; no effect while the icon is not added
  virtual void remove() = 0;
};

} // namespace lumotune::platform
