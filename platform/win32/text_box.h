// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's edit control of several lines, to read and copy only.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/child_window.h"

#include <string>

namespace lumotune::platform::win32 {

class TextBox final : public ControlOf<platform::TextBox> {
public:
  TextBox(Surface& surface, const std::wstring& designer_name);

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] std::wstring window_text(const std::wstring& text) const override;
  void show_bar_when_needed();

  bool measuring_ = false;
};

} // namespace lumotune::platform::win32
