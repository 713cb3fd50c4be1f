// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/browser.h"

#include "platform/win32/browser_gate.h"
#include "platform/win32/browser_site.h"
#include "platform/win32/late.h"
#include "platform/win32/ole_session.h"

#include <exdisp.h>
#include <urlmon.h>

#include <array>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

struct ReleaseObject {
  template <typename Interface>
  void operator()(Interface* object) const {
    object->Release();
  }
};
template <typename Interface>
using Object = std::unique_ptr<Interface, ReleaseObject>;

template <typename Interface>
Object<Interface> ask(IUnknown* object) {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(__uuidof(Interface), &found)))
    return {};
  return Object<Interface>(static_cast<Interface*>(found));
}

// What pages could do to the whole process, and the click that the system plays at each new page: beside music it would
// be heard.
void lock_process() {
  constexpr std::array features = {
      FEATURE_WINDOW_RESTRICTIONS,     FEATURE_DISABLE_MK_PROTOCOL,       FEATURE_LOCALMACHINE_LOCKDOWN,
      FEATURE_RESTRICT_ACTIVEXINSTALL, FEATURE_RESTRICT_FILEDOWNLOAD,     FEATURE_PROTOCOL_LOCKDOWN,
      FEATURE_SAFE_BINDTOOBJECT,       FEATURE_DISABLE_NAVIGATION_SOUNDS, FEATURE_BLOCK_INPUT_PROMPTS};
  const auto enable =
      late_function<decltype(CoInternetSetFeatureEnabled)>(L"urlmon.dll", "CoInternetSetFeatureEnabled");
  for (const INTERNETFEATURELIST feature : features) {
    if (enable != nullptr)
      enable(feature, SET_FEATURE_ON_PROCESS, TRUE);
  }
}

} // namespace

// The control in its site, from its making to its end.
class Browser::Page {
public:
  explicit Page(HWND area) : area_(area), site_(new BrowserSite(area)) {
    lock_process();
    void* made = nullptr;
    if (!gate_.closed() ||
        FAILED(CoCreateInstance(__uuidof(WebBrowser), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWebBrowser2), &made)))
      return;
    browser_.reset(static_cast<IWebBrowser2*>(made));
    const auto object = ask<IOleObject>(browser_.get());
    // The site comes first: the control asks it what is allowed.
    if (object == nullptr || FAILED(object->SetClientSite(site_.get())) || !advise() || !show(*object))
      end();
  }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  ~Page() {
    end();
    site_->leave();
  }

  void navigate(const std::wstring& address) {
    if (browser_ == nullptr)
      return;
    static const auto allocate = late_function<decltype(SysAllocString)>(L"oleaut32.dll", "SysAllocString");
    static const auto release = late_function<decltype(SysFreeString)>(L"oleaut32.dll", "SysFreeString");
    if (allocate == nullptr || release == nullptr)
      return;
    const BSTR text = allocate(address.c_str());
    browser_->Navigate(text, nullptr, nullptr, nullptr, nullptr);
    release(text);
  }

  [[nodiscard]] IUnknown* control() const { return browser_.get(); }

  void fit() {
    RECT place{};
    GetClientRect(area_, &place);
    if (const auto object = ask<IOleInPlaceObject>(browser_.get()))
      object->SetObjectRects(&place, &place);
  }

private:
  // Without its events the control could not be kept from anything.
  bool advise() {
    const auto container = ask<IConnectionPointContainer>(browser_.get());
    IConnectionPoint* point = nullptr;
    if (container == nullptr || FAILED(container->FindConnectionPoint(__uuidof(DWebBrowserEvents2), &point)))
      return false;
    events_.reset(point);
    return SUCCEEDED(events_->Advise(static_cast<IDispatch*>(site_.get()), &advised_));
  }
  bool show(IOleObject& object) {
    RECT place{};
    GetClientRect(area_, &place);
    browser_->put_Silent(VARIANT_TRUE);
    browser_->put_RegisterAsDropTarget(VARIANT_FALSE);
    return SUCCEEDED(object.DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, area_, &place));
  }
  // In this order: the control lets go of the site, then we of the control.
  void end() {
    if (events_ != nullptr && advised_ != 0)
      events_->Unadvise(std::exchange(advised_, 0));
    events_.reset();
    if (browser_ != nullptr)
      browser_->Stop();
    if (const auto object = ask<IOleObject>(browser_.get())) {
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
    }
    browser_.reset();
  }

  OleSession ole_;
  BrowserGate gate_;
  HWND area_;
  Object<BrowserSite> site_;
  Object<IWebBrowser2> browser_;
  Object<IConnectionPoint> events_;
  DWORD advised_ = 0;
};

Browser::Browser(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, L"STATIC", WS_CLIPCHILDREN) {}

Browser::~Browser() = default;

// A control that could not be made once is not tried again for each page.
void Browser::navigate(const std::wstring& address) {
  if (!is_web_address(address))
    return;
  if (page_ == nullptr)
    page_ = std::make_unique<Page>(window_);
  page_->navigate(address);
}

IUnknown* Browser::control() const {
  return page_ == nullptr ? nullptr : page_->control();
}

bool Browser::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == WM_SIZE && page_ != nullptr)
    page_->fit();
  return ControlOf::handle_message(message, w, l, result);
}

} // namespace lumotune::platform::win32
