// SPDX-License-Identifier: LGPL-2.1-or-later
// Numbers of the program's resources.
#pragma once

#define LUMOTUNE_ICON 1
