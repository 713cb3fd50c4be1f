// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's group box, custom-drawn to avoid flicker; and its progress bar.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/child_window.h"

#include <string>

namespace lumotune::platform::win32 {

class Frame final : public ControlOf<platform::Frame> {
public:
  Frame(Surface& surface, const std::wstring& designer_name);
  void draw(HDC target, const RECT& area) override;

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] bool drawn_at_once() const override { return true; }
};

class ProgressBar final : public ControlOf<platform::ProgressBar> {
public:
  ProgressBar(Surface& surface, const std::wstring& designer_name);
  void set_percent(int percent) override;
  [[nodiscard]] int percent() const override { return percent_; }

private:
  int percent_ = 0;
};

} // namespace lumotune::platform::win32
