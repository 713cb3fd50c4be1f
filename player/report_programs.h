// SPDX-License-Identifier: LGPL-2.1-or-later
// Starts the programs needed for the play report.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "platform/shell.h"

namespace lumotune::player {

// User-interface thread. Failures are silent.
class ReportPrograms {
public:
  struct Uses {
    const base::Settings& settings;
    const base::ProgramFolder& folder;
    platform::Shell& shell;
  };
  explicit ReportPrograms(const Uses& uses) : uses_(uses) {}

  void start_client();
  void start_report(bool client_link_on);

private:
  Uses uses_;
};

} // namespace lumotune::player
