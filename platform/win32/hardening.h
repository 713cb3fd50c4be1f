// SPDX-License-Identifier: LGPL-2.1-or-later
// Restrictions that the process puts on itself before anything else.
#pragma once

namespace lumotune::platform::win32 {

// From then on libraries are taken from the system's own folder alone, never from the program's, the current one or the
// path, and never from another machine; a damaged heap ends the process. What an older system does not know is left
// out. For the first line of the entry.
void harden_process();

} // namespace lumotune::platform::win32
