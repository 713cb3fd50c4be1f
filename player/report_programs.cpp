// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/report_programs.h"

#include "companions/command_lines.h"

namespace lumotune::player {

void ReportPrograms::start_client() {
  companions::launch(uses_.shell,
                     companions::messenger_client(companions::companion_values(uses_.folder, uses_.settings)));
}

void ReportPrograms::start_report(bool client_link_on) {
  const companions::CompanionValues values = companions::companion_values(uses_.folder, uses_.settings);
  companions::launch(uses_.shell, companions::play_report(values, client_link_on, uses_.settings.IDlastRadio));
}

} // namespace lumotune::player
