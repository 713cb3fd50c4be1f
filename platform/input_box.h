// SPDX-License-Identifier: LGPL-2.1-or-later
// A dialog that asks for one line of text.
#pragma once

#include <optional>
#include <string>

namespace lumotune::platform {

// User-interface thread.
class InputBox {
public:
  InputBox() = default;
  InputBox(const InputBox&) = delete;
  InputBox& operator=(const InputBox&) = delete;
  virtual ~InputBox() = default;

  // Waits while events run, so any state may have changed afterwards. Returns the text as typed, at most 2,000
  // characters; nothing when the user cancels or a box is already open.
  [[nodiscard]] virtual std::optional<std::wstring> ask(const std::wstring& prompt, const std::wstring& title,
                                                        const std::wstring& default_text) = 0;
};

} // namespace lumotune::platform
