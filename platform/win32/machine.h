// SPDX-License-Identifier: LGPL-2.1-or-later
// The program's folder, command line and other copies; date and time.
#pragma once

#include "platform/machine.h"
#include "platform/win32/running_mark.h"

#include <functional>
#include <string>

namespace lumotune::platform::win32 {

// Finds out at once, when made, whether another copy of the program runs in this session of the user. Where that copy
// is about to end, the constructor waits for it, 8 seconds at most.
class Machine final : public platform::Machine {
public:
  Machine();
  [[nodiscard]] std::wstring program_folder() const override { return folder_; }
  [[nodiscard]] std::wstring command_line() const override;
  [[nodiscard]] bool previous_instance() const override { return running_.previous(); }
  void begin_end() override;
  [[nodiscard]] std::wstring date_and_time() const override;

  std::function<void()> on_begin_end; // what else is to be done when the end begins; may be unset

private:
  std::wstring folder_;
  RunningMark running_;
};

} // namespace lumotune::platform::win32
