// SPDX-License-Identifier: LGPL-2.1-or-later
// Record sizes that other programs rely on, checked by the compiler.
#include "platform/win32/win.h"

#include <cstddef>

#include <shellapi.h>

static_assert(WM_COPYDATA == 74);
static_assert(WM_NCLBUTTONDOWN == 161 && HTCAPTION == 2);
static_assert(WM_MOUSEMOVE == 512 && WM_LBUTTONDOWN == 513 && WM_RBUTTONUP == 517);
static_assert((NIF_MESSAGE | NIF_ICON | NIF_TIP) == 7);
static_assert((SWP_NOMOVE | SWP_NOSIZE) == 3);
static_assert(SW_SHOWNORMAL == 1 && SW_SHOWMINIMIZED == 2 && SW_SHOWNOACTIVATE == 4);

#ifndef _WIN64
// The first form of the notification record, with a tip of 64 characters, and the copy-data record of three words.
static_assert(offsetof(NOTIFYICONDATAA, szTip) == 24);
static_assert(NOTIFYICONDATAA_V1_SIZE == 88);
static_assert(sizeof(COPYDATASTRUCT) == 12);
#endif
