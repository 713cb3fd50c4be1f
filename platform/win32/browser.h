// SPDX-License-Identifier: LGPL-2.1-or-later
// An area of a window that shows a page in the system's browser control.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/controls.h"

#include <unknwn.h>

#include <memory>
#include <string>

namespace lumotune::platform::win32 {

// The control is created for the first page: a program that shows none never waits for it.
class Browser final : public ControlOf<platform::Browser> {
public:
  Browser(Surface& surface, const std::wstring& designer_name);
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser() override;

  void navigate(const std::wstring& address) override;
  [[nodiscard]] IUnknown* control() const; // the system's; nullptr before the first page, and where it has none

private:
  class Page;
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;

  std::unique_ptr<Page> page_;
};

} // namespace lumotune::platform::win32
