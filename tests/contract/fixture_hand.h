// SPDX-License-Identifier: LGPL-2.1-or-later
// The backend under test with its menus and boxes, and the user's hand in them; by one name for both.
//   choose(name, caption)  in the next menu; where the item cannot be chosen the menu is closed
//   close_menu()           closes the next menu
//   answer(answer)         presses that button of the next message box
//   enter(text), cancel()  in the next input box
//   leave_open()           leaves the next menu or box alone
//   while_open(work)       done once, before any of these
#pragma once

#ifdef _WIN32
#include "tests/contract/fixture_hand_win32.h"
#else
#include "tests/contract/fixture_hand_memory.h"
#endif
