// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's own dragging, with a program that offers what is to be dropped and lets go of it over the window.
#pragma once

#include "platform/win32/ole_session.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace lumotune::contract {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM interfaces

// One format, one block. Lives on the stack of its test: references are not counted.
class DroppedData final : public IDataObject {
public:
  DroppedData(CLIPFORMAT format, std::string bytes) : format_(format), bytes_(std::move(bytes)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, __uuidof(IUnknown)) != FALSE || IsEqualIID(id, __uuidof(IDataObject)) != FALSE;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override {
    if (QueryGetData(wanted) != S_OK)
      return DV_E_FORMATETC;
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE, bytes_.size());
    std::memcpy(GlobalLock(medium->hGlobal), bytes_.data(), bytes_.size());
    GlobalUnlock(medium->hGlobal);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override {
    return wanted->cfFormat == format_ && (wanted->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_FORMATETC;
  }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, WINBOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
  CLIPFORMAT format_;
  std::string bytes_;
};

// Holds the button for some looks, then lets go.
class DroppingHand final : public IDropSource {
public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, __uuidof(IUnknown)) != FALSE || IsEqualIID(id, __uuidof(IDropSource)) != FALSE;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(WINBOOL, DWORD) override {
    constexpr int looks = 4;
    mouse_event(MOUSEEVENTF_MOVE, static_cast<DWORD>(looks_ % 2 == 0 ? 1 : -1), 0, 0, 0); // the next look
    return ++looks_ < looks ? S_OK : DRAGDROP_S_DROP;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

private:
  int looks_ = 0;
};

#pragma GCC diagnostic pop

inline std::string bytes_of(const std::wstring& text) {
  std::string bytes(text.size() * sizeof(wchar_t), '\0');
  if (!bytes.empty())
    std::memcpy(bytes.data(), text.data(), bytes.size());
  return bytes;
}

inline std::string block_of_paths(const std::vector<std::wstring>& paths) {
  std::string block = std::string("\x14\0\0\0", 4) + std::string(12, '\0') + std::string("\x01\0\0\0", 4);
  for (const std::wstring& path : paths)
    block += bytes_of(path + L'\0');
  return block + std::string(2, '\0');
}

// As it lies in the memory of the other program, which allows those effects; the one that the window chose.
inline DWORD drag(Backend& b, CLIPFORMAT format, const std::string& block, const platform::Control* control,
                  DWORD allowed) {
  const platform::win32::OleSession ole;
  RECT area{};
  GetWindowRect(control == nullptr ? b.window.handle() : b.window.handle_of(*control), &area);
  SetCursorPos(area.left + 6, area.top + 6);
  b.pass(50);
  DroppedData data(format, block);
  DroppingHand hand;
  DWORD effect = DROPEFFECT_NONE;
  mouse_event(MOUSEEVENTF_MOVE, 1, 0, 0, 0); // the first look
  const HRESULT result = DoDragDrop(&data, &hand, allowed, &effect);
  return result == DRAGDROP_S_DROP ? effect : DROPEFFECT_NONE;
}

inline bool drop_block(Backend& b, CLIPFORMAT format, const std::string& block, const platform::Control* control) {
  constexpr DWORD all = DROPEFFECT_COPY | DROPEFFECT_LINK | DROPEFFECT_MOVE;
  const DWORD effect = drag(b, format, block, control, all);
  b.loop.run_pending();
  return effect == DROPEFFECT_COPY;
}

inline bool drop(Backend& b, const platform::Drop& what, const platform::Control* control) {
  return what.paths.empty() ? drop_block(b, CF_UNICODETEXT, bytes_of(what.text + L'\0'), control)
                            : drop_block(b, CF_HDROP, block_of_paths(what.paths), control);
}

} // namespace lumotune::contract
