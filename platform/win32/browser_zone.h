// SPDX-License-Identifier: LGPL-2.1-or-later
// The security zone of the system's browser control: every page counts as a restricted site.
#pragma once

#include "platform/win32/win.h"

#include <servprov.h>
#include <urlmon.h>

namespace lumotune::platform::win32 {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM interfaces are destroyed through Release alone

// The part of a control's site that answers what a page may do. The control asks its site for this service, and asks
// the service before the system's own settings. User-interface thread; nothing throws.
class RestrictedZone : public IServiceProvider, public IInternetSecurityManager {
public:
  RestrictedZone() = default;
  RestrictedZone(const RestrictedZone&) = delete;
  RestrictedZone& operator=(const RestrictedZone&) = delete;

  HRESULT STDMETHODCALLTYPE QueryService(REFGUID service, REFIID id, void** object) override;

  // Every address lies in the zone of restricted sites.
  HRESULT STDMETHODCALLTYPE MapUrlToZone(LPCWSTR address, DWORD* zone, DWORD flags) override;
  // Denies everything not known to be harmless; a server that asks for credentials gets anonymous ones.
  HRESULT STDMETHODCALLTYPE ProcessUrlAction(LPCWSTR address, DWORD action, BYTE* policy, DWORD policy_size,
                                             BYTE* context, DWORD context_size, DWORD flags, DWORD reserved) override;
  HRESULT STDMETHODCALLTYPE QueryCustomPolicy(LPCWSTR address, REFGUID key, BYTE** policy, DWORD* policy_size,
                                              BYTE* context, DWORD context_size, DWORD reserved) override;

  // The zones themselves are the system's, and no page changes them.
  HRESULT STDMETHODCALLTYPE GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) override { return INET_E_DEFAULT_ACTION; }
  HRESULT STDMETHODCALLTYPE SetSecuritySite(IInternetSecurityMgrSite*) override { return INET_E_DEFAULT_ACTION; }
  HRESULT STDMETHODCALLTYPE GetSecuritySite(IInternetSecurityMgrSite**) override { return INET_E_DEFAULT_ACTION; }
  HRESULT STDMETHODCALLTYPE SetZoneMapping(DWORD, LPCWSTR, DWORD) override { return E_ACCESSDENIED; }
  HRESULT STDMETHODCALLTYPE GetZoneMappings(DWORD, IEnumString**, DWORD) override { return E_NOTIMPL; }

protected:
  ~RestrictedZone() = default;
};

#pragma GCC diagnostic pop

} // namespace lumotune::platform::win32
