// SPDX-License-Identifier: LGPL-2.1-or-later
// Connects the rooms: every port and every event of the program in one place.
#pragma once

namespace lumotune::base {
struct LumotuneForm;
}

namespace lumotune::app {

class Program;
struct Platform;

void bind_ports(Program& program);
void bind_events(Program& program, const Platform& platform, base::LumotuneForm& form);

} // namespace lumotune::app
