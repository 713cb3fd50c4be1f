// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's edit control of one line.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/child_window.h"

#include <string>

namespace lumotune::platform::win32 {

class TextEntry final : public ControlOf<platform::TextEntry> {
public:
  TextEntry(Surface& surface, const std::wstring& designer_name);
  void set_text(const std::wstring& text) override;
  void set_cue(const std::wstring& cue) override;
  [[nodiscard]] std::wstring cue() const override { return cue_; }
  void take_keyboard() override;
  void notified(WORD code) override;
  [[nodiscard]] bool takes_enter() const override { return true; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  void draw_cue();

  std::wstring cue_;
  bool setting_ = false; // the program sets the text
};

} // namespace lumotune::platform::win32
