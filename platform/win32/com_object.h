// SPDX-License-Identifier: LGPL-2.1-or-later
// The reference count and the identity of a COM object with a single interface.
#pragma once

#include <unknwn.h>

#include <atomic>

namespace lumotune::platform::win32 {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM interfaces are destroyed through Release alone

// `Interface` derives from IUnknown directly. The object is created with `new` and one reference, and deletes itself
// with the last one; references are counted on any thread.
template <typename Interface>
class ComObject : public Interface {
public:
  ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) final {
    if (object == nullptr)
      return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(id, __uuidof(IUnknown)) == FALSE && IsEqualIID(id, __uuidof(Interface)) == FALSE)
      return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() final { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = --references_;
    if (left == 0)
      delete this;
    return left;
  }

protected:
  virtual ~ComObject() = default;

private:
  std::atomic<ULONG> references_ = 1;
};

#pragma GCC diagnostic pop

} // namespace lumotune::platform::win32
