// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/browser_gate.h"

#include "platform/win32/browser_site.h"
#include "platform/win32/com_object.h"
#include "platform/win32/late.h"

#include <array>
#include <atomic>
#include <new>
#include <string_view>

namespace lumotune::platform::win32 {
namespace {

// Files, folders of other machines, the inside of help files and archives, and what fetches from elsewhere.
constexpr std::array schemes = {L"http", L"https", L"file", L"ftp", L"local", L"mk", L"its", L"ms-its", L"mhtml"};

// The system's own handlers of web addresses.
constexpr CLSID http_class = {0x79eac9e2, 0xbaf9, 0x11ce, {0x8c, 0x82, 0x00, 0xaa, 0x00, 0x4b, 0xa9, 0x0b}};
constexpr CLSID https_class = {0x79eac9e5, 0xbaf9, 0x11ce, {0x8c, 0x82, 0x00, 0xaa, 0x00, 0x4b, 0xa9, 0x0b}};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM interfaces are destroyed through Release alone

// Looks at one address, and hands an allowed one to the system's handler, which is made part of this object: what else
// the system asks of it goes there. On whatever thread the system opens the address; counted, and aggregated where it
// is wanted. (Answering
// that the system may use its own handler is documented as well, but Wine lacks it.) Redirects are followed by that
// handler and are not checked again.
class GateProtocol final : public IInternetProtocol {
public:
  explicit GateProtocol(IUnknown* outer) : outer_(outer == nullptr ? &own_ : outer) {}
  GateProtocol(const GateProtocol&) = delete;
  GateProtocol& operator=(const GateProtocol&) = delete;

  [[nodiscard]] IUnknown* own() { return &own_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return outer_->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return outer_->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return outer_->Release(); }

  HRESULT STDMETHODCALLTYPE Start(LPCWSTR address, IInternetProtocolSink* sink, IInternetBindInfo* info, DWORD flags,
                                  HANDLE_PTR reserved) override {
    if (address != nullptr && is_web_address(address) && take_handler(address))
      return inner_->Start(address, sink, info, flags, reserved);
    if (sink != nullptr)
      sink->ReportResult(INET_E_SECURITY_PROBLEM, 0, nullptr);
    return INET_E_SECURITY_PROBLEM;
  }
  HRESULT STDMETHODCALLTYPE Continue(PROTOCOLDATA* data) override {
    return inner_ == nullptr ? E_UNEXPECTED : inner_->Continue(data);
  }
  HRESULT STDMETHODCALLTYPE Abort(HRESULT reason, DWORD options) override {
    return inner_ == nullptr ? S_OK : inner_->Abort(reason, options);
  }
  HRESULT STDMETHODCALLTYPE Terminate(DWORD options) override {
    return inner_ == nullptr ? S_OK : inner_->Terminate(options);
  }
  HRESULT STDMETHODCALLTYPE Suspend() override { return inner_ == nullptr ? E_NOTIMPL : inner_->Suspend(); }
  HRESULT STDMETHODCALLTYPE Resume() override { return inner_ == nullptr ? E_NOTIMPL : inner_->Resume(); }
  HRESULT STDMETHODCALLTYPE Read(void* bytes, ULONG size, ULONG* read) override {
    if (inner_ != nullptr)
      return inner_->Read(bytes, size, read);
    if (read != nullptr)
      *read = 0;
    return INET_E_SECURITY_PROBLEM;
  }
  HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* place) override {
    return inner_ == nullptr ? E_FAIL : inner_->Seek(move, origin, place);
  }
  HRESULT STDMETHODCALLTYPE LockRequest(DWORD options) override {
    return inner_ == nullptr ? S_OK : inner_->LockRequest(options);
  }
  HRESULT STDMETHODCALLTYPE UnlockRequest() override { return inner_ == nullptr ? S_OK : inner_->UnlockRequest(); }

private:
  // The object's own identity, which holds the reference count; outer_ may be the aggregating object's.
  class Own final : public IUnknown {
  public:
    explicit Own(GateProtocol& gate) : gate_(gate) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
      if (object == nullptr)
        return E_POINTER;
      *object = nullptr;
      if (id == __uuidof(IUnknown))
        *object = static_cast<IUnknown*>(this);
      else if (id == __uuidof(IInternetProtocolRoot) || id == __uuidof(IInternetProtocol))
        *object = static_cast<IInternetProtocol*>(&gate_);
      else if (id != __uuidof(IInternetProtocolEx) && gate_.inner_identity_ != nullptr)
        return gate_.inner_identity_->QueryInterface(id, object); // but not what starts past this object
      else
        return E_NOINTERFACE;
      static_cast<IUnknown*>(*object)->AddRef();
      return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
      const ULONG left = --references_;
      if (left == 0) {
        references_ = 1; // the aggregated handler may add and release a reference during destruction
        delete &gate_;
      }
      return left;
    }

  private:
    GateProtocol& gate_;
    std::atomic<ULONG> references_ = 1;
  };

  ~GateProtocol() {
    if (inner_identity_ != nullptr)
      inner_identity_->Release();
  }

  bool take_handler(std::wstring_view address) {
    constexpr std::size_t letters_of_https = 5;
    const bool secure = address.size() > letters_of_https && address[letters_of_https - 1] != L':';
    void* identity = nullptr;
    if (inner_ != nullptr || FAILED(CoCreateInstance(secure ? https_class : http_class, outer_, CLSCTX_INPROC_SERVER,
                                                     __uuidof(IUnknown), &identity)))
      return false;
    inner_identity_ = static_cast<IUnknown*>(identity);
    void* protocol = nullptr;
    if (FAILED(inner_identity_->QueryInterface(__uuidof(IInternetProtocol), &protocol)))
      return false;
    inner_ = static_cast<IInternetProtocol*>(protocol);
    outer_->Release(); // the aggregated handler counts on the outer object: this reference would be a cycle
    return true;
  }

  Own own_{*this};
  IUnknown* outer_;
  IUnknown* inner_identity_ = nullptr; // owned
  IInternetProtocol* inner_ = nullptr; // lives as long as its identity
};

#pragma GCC diagnostic pop

} // namespace

// Makes a gate for each address that is opened.
class BrowserGate::Handlers final : public ComObject<IClassFactory> {
public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr)
      return E_POINTER;
    *object = nullptr;
    if (outer != nullptr && id != __uuidof(IUnknown))
      return CLASS_E_NOAGGREGATION; // an aggregating caller must ask for IUnknown
    auto* made = new (std::nothrow) GateProtocol(outer);
    if (made == nullptr)
      return E_OUTOFMEMORY;
    const HRESULT result = made->own()->QueryInterface(id, object);
    made->own()->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(WINBOOL) override { return S_OK; }
};

void BrowserGate::ReleaseHandlers::operator()(Handlers* handlers) const {
  handlers->Release();
}

BrowserGate::BrowserGate() : handlers_(new Handlers) {
  const auto get = late_function<decltype(CoInternetGetSession)>(L"urlmon.dll", "CoInternetGetSession");
  IInternetSession* session = nullptr;
  if (get == nullptr || FAILED(get(0, &session, 0)) || session == nullptr)
    return;
  session_.reset(session);
  // The system asks for a class to tell handlers apart; this one is ours alone.
  constexpr CLSID own_class = {0x6f3c6a51, 0x0f0e, 0x4a3b, {0x9d, 0x57, 0x21, 0x8e, 0x5c, 0x70, 0xb4, 0x1d}};
  bool all = true;
  for (const wchar_t* scheme : schemes)
    all = SUCCEEDED(session->RegisterNameSpace(handlers_.get(), own_class, scheme, 0, nullptr, 0)) && all;
  if (!all)
    session_.reset(); // schemes registered so far stay until the process ends, and only refuse
}

BrowserGate::~BrowserGate() {
  if (session_ == nullptr)
    return;
  for (const wchar_t* scheme : schemes)
    session_->UnregisterNameSpace(handlers_.get(), scheme);
}

} // namespace lumotune::platform::win32
