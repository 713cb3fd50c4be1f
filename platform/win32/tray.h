// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/common/thread_check.h"
#include "platform/tray.h"
#include "platform/win32/window.h"

#include <shellapi.h>

#include <memory>
#include <string>
#include <string_view>

namespace lumotune::platform::win32 {

// A tip as the shell reads it, in that code page, cut between two characters to so many bytes.
[[nodiscard]] std::string tip_bytes(std::wstring_view tip, UINT code_page, std::size_t most);

struct DestroyIconHandle {
  using pointer = HICON;
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<void, DestroyIconHandle>;

class Tray final : public platform::Tray {
public:
  // Events arrive as mouse moves over `receiver`, a hidden control of the window.
  Tray(Window& window, const Control& receiver);
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;
  ~Tray() override;

  void add(const std::wstring& tip) override;
  void modify(const std::wstring& tip) override;
  void remove() override;
  [[nodiscard]] HICON icon() const { return record_.hIcon; }

private:
  void fill_tip(const std::wstring& tip);
  void load_icon();

  const ThreadCheck thread_{"user-interface thread"};
  Window& window_;
  IconHandle icon_; // in the size of the notification area
  NOTIFYICONDATAA record_{};
  bool added_ = false;
};

} // namespace lumotune::platform::win32
