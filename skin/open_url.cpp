// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/open_url.h"

#include "skin/web_address.h"

namespace lumotune::skin {

int WebPages::OpenUrl(const std::wstring& address) {
  if (!stays_one_argument(address))
    return 0;
  if (!is_for_explorer(address))
    return is_foreign_target(address) ? 0 : shell_.open(L"\"" + address + L"\"");
  // Unquoted, as the explorer program has always been given addresses. One that it does not open is no error of ours.
  (void)shell_.start(L"explorer " + address, L"", platform::ShowWindow::minimized_focus);
  return 0;
}

void WebPages::open_station_web(const std::wstring& address) {
  const std::size_t first = address.find_first_not_of(L' ');
  if (first == std::wstring::npos)
    return;
  const std::wstring trimmed = address.substr(first, address.find_last_not_of(L' ') - first + 1);
  if (is_station_web(trimmed))
    OpenUrl(trimmed);
}

} // namespace lumotune::skin
