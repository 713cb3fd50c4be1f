// SPDX-License-Identifier: LGPL-2.1-or-later
// Resource identifiers of the program.
#pragma once

#define LUMOTUNE_ICON 1
