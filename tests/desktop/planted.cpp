// SPDX-License-Identifier: LGPL-2.1-or-later
// A library that somebody put beside the program under the name of one of the system's: notes that it was taken.
#include <windows.h>

#include <string>

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, LPVOID /*reserved*/) {
  if (reason != DLL_PROCESS_ATTACH)
    return TRUE;
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size())));
  const HANDLE note = CreateFileW((path + L".taken").c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (note != INVALID_HANDLE_VALUE)
    CloseHandle(note);
  return TRUE;
}
