// SPDX-License-Identifier: LGPL-2.1-or-later
// A clipboard in memory.
#pragma once

#include "platform/clipboard.h"
#include "platform/common/thread_check.h"

#include <string>

namespace lumotune::platform::memory {

class Clipboard final : public platform::Clipboard {
public:
  [[nodiscard]] bool set_text(const std::wstring& wanted) override {
    thread_.check();
    if (held)
      return false;
    text = wanted.substr(0, wanted.find(L'\0'));
    return true;
  }

  std::wstring text;
  bool held = false; // another program has it open

private:
  const ThreadCheck thread_{"user-interface thread"};
};

} // namespace lumotune::platform::memory
