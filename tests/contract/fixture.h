// SPDX-License-Identifier: LGPL-2.1-or-later
// The backend under test, by one name for both.
#pragma once

#ifdef _WIN32
#include "tests/contract/fixture_win32.h"
#else
#include "tests/contract/fixture_memory.h"
#endif
