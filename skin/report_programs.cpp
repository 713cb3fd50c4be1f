// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/report_programs.h"

#include "skin/companions.h"

namespace lumotune::skin {

void ReportPrograms::start_client() {
  launch(uses_.shell, messenger_client(companion_values(uses_.machine, uses_.settings)));
}

void ReportPrograms::start_report(bool client_link_on) {
  const CompanionValues values = companion_values(uses_.machine, uses_.settings);
  launch(uses_.shell, play_report(values, client_link_on, uses_.settings.IDlastRadio));
}

} // namespace lumotune::skin
