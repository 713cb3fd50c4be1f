// SPDX-License-Identifier: LGPL-2.1-or-later
// Starts programs, and opens documents by the system's shell.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/shell.h"

#include <string>

namespace lumotune::platform::win32 {

class Shell final : public platform::Shell {
public:
  [[nodiscard]] bool start(const std::wstring& command_line, const std::wstring& application, ShowWindow show) override;
  [[nodiscard]] int open(const std::wstring& quoted_target) override;

private:
  const ThreadCheck thread_{"user-interface thread"};
};

} // namespace lumotune::platform::win32
