// SPDX-License-Identifier: LGPL-2.1-or-later
// Stands in for the system's internet library while a test wants a machine that is not connected.
#include <windows.h>

extern "C" __declspec(dllexport) BOOL WINAPI
    InternetGetConnectedStateExW(DWORD* flags, wchar_t* name, DWORD length, DWORD /*reserved*/) {
  if (flags != nullptr)
    *flags = 0;
  if (name != nullptr && length > 0)
    name[0] = 0;
  return FALSE;
}
