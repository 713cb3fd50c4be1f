// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/browser_zone.h"

namespace lumotune::platform::win32 {
namespace {

// Pictures need no permission from the zone. Scripts, controls, downloads, fonts, forms, cross-site frames and cookies
// do.
DWORD policy_of(DWORD action) {
  switch (action) {
  case URLACTION_CREDENTIALS_USE:
    return URLPOLICY_CREDENTIALS_ANONYMOUS_ONLY;
  case URLACTION_JAVA_PERMISSIONS:
    return URLPOLICY_JAVA_PROHIBIT;
  case URLACTION_CHANNEL_SOFTDIST_PERMISSIONS:
    return URLPOLICY_CHANNEL_SOFTDIST_PROHIBIT;
  default:
    return URLPOLICY_DISALLOW;
  }
}

} // namespace

HRESULT RestrictedZone::QueryService(REFGUID service, REFIID id, void** object) {
  if (object == nullptr)
    return E_POINTER;
  *object = nullptr;
  if (service != __uuidof(IInternetSecurityManager))
    return E_NOINTERFACE;
  return static_cast<IInternetSecurityManager*>(this)->QueryInterface(id, object);
}

HRESULT RestrictedZone::MapUrlToZone(LPCWSTR /*address*/, DWORD* zone, DWORD /*flags*/) {
  if (zone == nullptr)
    return E_POINTER;
  *zone = URLZONE_UNTRUSTED;
  return S_OK;
}

HRESULT RestrictedZone::ProcessUrlAction(LPCWSTR /*address*/, DWORD action, BYTE* policy, DWORD policy_size,
                                         BYTE* /*context*/, DWORD /*context_size*/, DWORD /*flags*/,
                                         DWORD /*reserved*/) {
  const DWORD answer = policy_of(action);
  if (policy != nullptr && policy_size >= sizeof answer)
    *reinterpret_cast<DWORD*>(policy) = answer;
  return answer == URLPOLICY_DISALLOW ? S_FALSE : S_OK;
}

HRESULT RestrictedZone::QueryCustomPolicy(LPCWSTR /*address*/, REFGUID /*key*/, BYTE** policy, DWORD* policy_size,
                                          BYTE* /*context*/, DWORD /*context_size*/, DWORD /*reserved*/) {
  if (policy != nullptr)
    *policy = nullptr;
  if (policy_size != nullptr)
    *policy_size = 0;
  return HRESULT_FROM_WIN32(ERROR_NOT_FOUND);
}

} // namespace lumotune::platform::win32
