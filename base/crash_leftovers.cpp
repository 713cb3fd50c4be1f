// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/crash_leftovers.h"

namespace lumotune::base {

void settle_leftovers(platform::Files& files, const std::wstring& program_folder) {
  for (const wchar_t* name : {L"\\Orb_Data\\options.ini", L"\\Orb_Data\\orb_server.tt", L"\\list.tt"})
    files.settle(program_folder + name);
  files.settle(program_folder + L"\\radios.tt", program_folder + L"\\kategories.tt");
}

std::wstring files_that_cannot_be_saved(platform::Files& files, const std::wstring& program_folder) {
  std::wstring names;
  for (const wchar_t* name : {L"\\Orb_Data\\options.ini", L"\\list.tt"}) {
    if (!files.can_replace(program_folder + name))
      names += L"\r\n" + program_folder + name;
  }
  return names;
}

} // namespace lumotune::base
