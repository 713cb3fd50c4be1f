// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/proxy.h"

#include "platform/common/proxy_rules.h"
#include "platform/win32/late.h"

#include <winhttp.h>

namespace lumotune::platform::win32 {
namespace {

std::string narrow(LPCWSTR text) {
  std::string bytes;
  for (; text != nullptr && *text != 0; ++text)
    bytes += *text < 128 ? static_cast<char>(*text) : '?';
  return bytes;
}

} // namespace

// Only what the settings name outright; a script that computes proxies is not run.
std::string system_proxy(const std::string& address) {
  const auto ask = late_function<decltype(WinHttpGetIEProxyConfigForCurrentUser)>(
      L"winhttp.dll", "WinHttpGetIEProxyConfigForCurrentUser");
  WINHTTP_CURRENT_USER_IE_PROXY_CONFIG config{};
  if (ask == nullptr || ask(&config) == 0)
    return {};
  const ProxySettings settings = {narrow(config.lpszProxy), narrow(config.lpszProxyBypass)};
  for (LPWSTR text : {config.lpszAutoConfigUrl, config.lpszProxy, config.lpszProxyBypass}) {
    if (text != nullptr)
      GlobalFree(text);
  }
  return proxy_for(settings, address);
}

} // namespace lumotune::platform::win32
