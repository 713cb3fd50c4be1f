// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/open_url.h"

#include "skin/web_address.h"

namespace lumotune::skin {

bool WebPages::refuses(const std::wstring& address) {
  return has_what_no_address_has(address) || (!is_for_explorer(address) && is_foreign_target(address));
}

int WebPages::OpenUrl(const std::wstring& address) {
  if (refuses(address))
    return 0;
  if (!is_for_explorer(address))
    return shell_.open(L"\"" + address + L"\"");
  // Unquoted, as the explorer program has always been given addresses. One that it does not open is no error of ours.
  (void)shell_.start(L"explorer " + address, L"", platform::ShowWindow::minimized_focus);
  return 0;
}

bool WebPages::open_station_web(const std::wstring& address) {
  const std::size_t first = address.find_first_not_of(L' ');
  if (first == std::wstring::npos)
    return false;
  const std::wstring trimmed = address.substr(first, address.find_last_not_of(L' ') - first + 1);
  if (!is_station_web(trimmed))
    return false;
  (void)OpenUrl(trimmed); // a failure of the system is silent
  return true;
}

} // namespace lumotune::skin
