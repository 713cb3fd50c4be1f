// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/crash_leftovers.h"

namespace lumotune::base {

void settle_leftovers(const ProgramFolder& folder) {
  for (const std::wstring& file : {folder.data(L"options.ini"), folder.data(L"orb_server.tt"), folder.path(L"list.tt"),
                                   folder.path(L"skladby.txt")})
    folder.files().settle(file);
  folder.files().settle(folder.path(L"radios.tt"), folder.path(L"kategories.tt"));
}

std::wstring files_that_cannot_be_saved(const ProgramFolder& folder) {
  std::wstring names;
  for (const std::wstring& file : {folder.data(L"options.ini"), folder.path(L"list.tt")}) {
    if (!folder.files().can_replace(file))
      names += L"\r\n" + file;
  }
  return names;
}

} // namespace lumotune::base
