// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/open_url.h"

#include "base/text.h"
#include "companions/web_address.h"

namespace lumotune::companions {

bool WebPages::refuses(const std::wstring& address) {
  const std::wstring_view bare = base::trimmed(address);
  return has_what_no_address_has(bare) || (!is_for_explorer(bare) && is_foreign_target(bare));
}

int WebPages::OpenUrl(const std::wstring& address) {
  const std::wstring bare(base::trimmed(address));
  if (refuses(bare))
    return 0;
  if (!is_for_explorer(bare))
    return shell_.open(L"\"" + bare + L"\"");
  // Unquoted, as the explorer program has always been given addresses. Its failures are ignored.
  (void)shell_.start(L"explorer " + bare, L"", platform::ShowWindow::minimized_focus);
  return 0;
}

bool WebPages::open_own(const std::wstring& address) {
  if (refuses(address))
    return false;
  (void)OpenUrl(address);
  return true;
}

bool WebPages::open_station_web(const std::wstring& address) {
  const std::wstring bare(base::trimmed(address));
  if (!is_station_web(bare))
    return false;
  (void)OpenUrl(bare); // a failure of the system is silent
  return true;
}

} // namespace lumotune::companions
