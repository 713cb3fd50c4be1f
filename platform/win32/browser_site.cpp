// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/browser_site.h"

#include <exdisp.h>
#include <exdispid.h>
#include <mshtmdid.h>

#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

// Pictures are all that a page may load beside itself.
constexpr LONG allowed = DLCTL_DLIMAGES | DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA | DLCTL_NO_RUNACTIVEXCTLS |
                         DLCTL_NO_DLACTIVEXCTLS | DLCTL_NO_BEHAVIORS | DLCTL_NO_CLIENTPULL | DLCTL_SILENT;

// The name is missing from some of the compiler's headers.
constexpr DISPID ambient_silent = -5502;

template <typename Value>
HRESULT answer_nothing(Value** answer, HRESULT result) {
  if (answer != nullptr)
    *answer = nullptr;
  return result;
}

bool starts_with(std::wstring_view text, std::wstring_view small_letters) {
  return text.size() >= small_letters.size() &&
         std::equal(small_letters.begin(), small_letters.end(), text.begin(), [](wchar_t wanted, wchar_t letter) {
           return wanted == (letter >= L'A' && letter <= L'Z' ? letter - L'A' + L'a' : letter);
         });
}

// Whether an address, without its scheme, leads out of the user's own network by its name. The system takes a backslash
// for a slash; what it might decode or cut differently from us is refused: percent signs, blanks, brackets without a
// number.
bool is_outside(std::wstring_view rest) {
  const std::wstring_view place = rest.substr(0, rest.find_first_of(L"/\\?#"));
  if (place.find_first_of(L"@% ") != std::wstring_view::npos)
    return false;
  if (place.starts_with(L'['))
    return place.find(L']') != std::wstring_view::npos && place.find(L':') != std::wstring_view::npos;
  std::wstring_view host = place.substr(0, place.find(L':'));
  while (host.ends_with(L'.'))
    host.remove_suffix(1); // a name's own end is no dot within it
  return host.find(L'.') != std::wstring_view::npos && !host.starts_with(L'.');
}

// The arguments of an event stand in reverse order; this counts as its description does.
const VARIANT* argument(const DISPPARAMS& arguments, UINT index) {
  return index < arguments.cArgs ? &arguments.rgvarg[arguments.cArgs - 1 - index] : nullptr;
}

void cancel(const DISPPARAMS& arguments, UINT index) {
  const VARIANT* given = argument(arguments, index);
  if (given != nullptr && given->vt == (VT_BYREF | VT_BOOL) && given->pboolVal != nullptr)
    *given->pboolVal = VARIANT_TRUE;
}

bool may_go_to(const VARIANT* address) {
  if (address != nullptr && address->vt == (VT_BYREF | VT_VARIANT))
    address = address->pvarVal;
  if (address == nullptr || address->vt != VT_BSTR || address->bstrVal == nullptr)
    return false;
  return is_web_address(address->bstrVal) || std::wstring_view(address->bstrVal) == L"about:blank";
}

void rule(DISPID event, const DISPPARAMS& arguments) {
  switch (event) {
  case DISPID_BEFORENAVIGATE2: // control, address, flags, frame, data, headers, cancel
    if (!may_go_to(argument(arguments, 1)))
      cancel(arguments, 6);
    break;
  case DISPID_NEWWINDOW2: // window, cancel
  case DISPID_NEWWINDOW3: // window, cancel, flags, context, address
    cancel(arguments, 1);
    break;
  case DISPID_FILEDOWNLOAD: { // whether the control itself shows it, cancel
    const VARIANT* shown = argument(arguments, 0);
    if (shown == nullptr || shown->vt != VT_BOOL || shown->boolVal == VARIANT_FALSE)
      cancel(arguments, 1);
    break;
  }
  case DISPID_NAVIGATEERROR: // control, address, frame, number, cancel: a page of the system's own would come
    cancel(arguments, 4);
    break;
  default:
    break;
  }
}

} // namespace

bool is_web_address(std::wstring_view address) {
  constexpr std::size_t longest = 2083;
  if (address.size() > longest ||
      std::any_of(address.begin(), address.end(), [](wchar_t letter) { return letter < L' ' || letter == 0x7f; }))
    return false;
  if (starts_with(address, L"http://"))
    return is_outside(address.substr(7));
  return starts_with(address, L"https://") && is_outside(address.substr(8));
}

HRESULT BrowserSite::QueryInterface(REFIID id, void** object) {
  if (object == nullptr)
    return E_POINTER;
  *object = nullptr;
  if (id == __uuidof(IUnknown) || id == __uuidof(IOleClientSite))
    *object = static_cast<IOleClientSite*>(this);
  else if (id == __uuidof(IOleWindow) || id == __uuidof(IOleInPlaceSite))
    *object = static_cast<IOleInPlaceSite*>(this);
  else if (id == __uuidof(IOleInPlaceUIWindow) || id == __uuidof(IOleInPlaceFrame))
    *object = static_cast<IOleInPlaceFrame*>(this);
  else if (id == __uuidof(IDocHostUIHandler))
    *object = static_cast<IDocHostUIHandler*>(this);
  else if (id == __uuidof(IDocHostShowUI))
    *object = static_cast<IDocHostShowUI*>(this);
  else if (id == __uuidof(IServiceProvider))
    *object = static_cast<IServiceProvider*>(this);
  else if (id == __uuidof(IInternetSecurityManager))
    *object = static_cast<IInternetSecurityManager*>(this);
  else if (id == __uuidof(IDispatch) || id == __uuidof(DWebBrowserEvents2))
    *object = static_cast<IDispatch*>(this);
  else
    return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG BrowserSite::Release() {
  const ULONG left = --references_;
  if (left == 0)
    delete this;
  return left;
}

HRESULT BrowserSite::GetWindow(HWND* window) {
  if (window == nullptr)
    return E_POINTER;
  *window = area_;
  return area_ == nullptr ? E_FAIL : S_OK;
}

HRESULT BrowserSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                      LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr)
    return E_POINTER;
  *frame = nullptr;
  *document = nullptr; // the frame itself
  if (area_ == nullptr)
    return E_FAIL;
  *frame = static_cast<IOleInPlaceFrame*>(this);
  AddRef();
  GetClientRect(area_, place);
  *clip = *place;
  info->fMDIApp = FALSE;
  info->hwndFrame = area_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT BrowserSite::Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* arguments,
                            VARIANT* result, EXCEPINFO* /*exception*/, UINT* /*wrong*/) {
  if (member == DISPID_AMBIENT_DLCONTROL && result != nullptr) {
    result->vt = VT_I4;
    result->lVal = allowed;
    return S_OK;
  }
  if (member == ambient_silent && result != nullptr) {
    result->vt = VT_BOOL;
    result->boolVal = VARIANT_TRUE;
    return S_OK;
  }
  if (member < 0 || arguments == nullptr)
    return DISP_E_MEMBERNOTFOUND;
  rule(member, *arguments);
  return S_OK;
}

HRESULT BrowserSite::GetHostInfo(DOCHOSTUIINFO* info) {
  if (info == nullptr)
    return E_POINTER;
  info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_NO3DOUTERBORDER | DOCHOSTUIFLAG_THEME |
                  DOCHOSTUIFLAG_DISABLE_HELP_MENU | DOCHOSTUIFLAG_LOCAL_MACHINE_ACCESS_CHECK |
                  DOCHOSTUIFLAG_DISABLE_UNTRUSTEDPROTOCOL | DOCHOSTUIFLAG_DPI_AWARE;
  info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
  return S_OK;
}

HRESULT BrowserSite::ShowMessage(HWND, LPOLESTR, LPOLESTR, DWORD, LPOLESTR, DWORD, LRESULT* answer) {
  if (answer != nullptr)
    *answer = IDCANCEL;
  return S_OK;
}

HRESULT BrowserSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  return answer_nothing(moniker, E_NOTIMPL);
}

HRESULT BrowserSite::GetContainer(IOleContainer** container) {
  return answer_nothing(container, E_NOINTERFACE);
}

HRESULT BrowserSite::ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                            IOleInPlaceUIWindow*) {
  return S_FALSE;
}

HRESULT BrowserSite::GetOptionKeyPath(LPOLESTR* key, DWORD) {
  return answer_nothing(key, E_NOTIMPL);
}

HRESULT BrowserSite::GetExternal(IDispatch** external) {
  return answer_nothing(external, E_NOTIMPL);
}

HRESULT BrowserSite::TranslateUrl(DWORD, LPWSTR, LPWSTR* translated) {
  return answer_nothing(translated, S_FALSE);
}

HRESULT BrowserSite::FilterDataObject(IDataObject*, IDataObject** filtered) {
  return answer_nothing(filtered, S_FALSE);
}

HRESULT BrowserSite::GetTypeInfoCount(UINT* count) {
  if (count == nullptr)
    return E_POINTER;
  *count = 0;
  return S_OK;
}

} // namespace lumotune::platform::win32
