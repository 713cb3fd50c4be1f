// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/drop_target.h"

#include "platform/common/drop_record.h"
#include "platform/win32/com_object.h"

#include <algorithm>
#include <string>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

// A larger block is not looked at: it holds more than a drop may.
constexpr std::size_t max_block = 8ULL * 1024 * 1024;

FORMATETC format_of(CLIPFORMAT format) {
  return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

bool offers(IDataObject& data, CLIPFORMAT format) {
  FORMATETC wanted = format_of(format);
  return data.QueryGetData(&wanted) == S_OK;
}

// The block of that format, copied; empty when there is none.
std::string block_of(IDataObject& data, CLIPFORMAT format) {
  FORMATETC wanted = format_of(format);
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&wanted, &medium)))
    return {};
  std::string bytes;
  if (medium.tymed == TYMED_HGLOBAL && medium.hGlobal != nullptr) {
    const SIZE_T size = GlobalSize(medium.hGlobal);
    const void* block = size <= max_block ? GlobalLock(medium.hGlobal) : nullptr;
    if (block != nullptr) {
      bytes.assign(static_cast<const char*>(block), size);
      GlobalUnlock(medium.hGlobal);
    }
  }
  ReleaseStgMedium(&medium);
  return bytes;
}

Drop drop_of(IDataObject& data) {
  Drop drop;
  if (offers(data, CF_HDROP))
    drop.paths = paths_of_drop_record(block_of(data, CF_HDROP)).value_or(std::vector<std::wstring>());
  else
    drop.text = text_of_drop_record(block_of(data, CF_UNICODETEXT)).value_or(std::wstring());
  return drop;
}

} // namespace

// Other programs may hold references beyond the window's end.
class DropTarget::Object final : public ComObject<IDropTarget> {
public:
  explicit Object(Taken taken) : taken_(std::move(taken)) {}
  void leave() { taken_ = {}; }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    wanted_ = data != nullptr && (offers(*data, CF_HDROP) || offers(*data, CF_UNICODETEXT));
    return answer(effect);
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override { return answer(effect); }
  HRESULT STDMETHODCALLTYPE DragLeave() override {
    wanted_ = false;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL point, DWORD* effect) override {
    const bool wanted = std::exchange(wanted_, false);
    bool taken = false;
    guarded([&] { taken = wanted && data != nullptr && take(*data, {point.x, point.y}); });
    wanted_ = taken;
    const HRESULT result = answer(effect);
    wanted_ = false;
    return result;
  }

private:
  bool take(IDataObject& data, POINT point) {
    platform::Drop drop = drop_of(data);
    if (!taken_ || !can_be_dropped(drop))
      return false;
    taken_(std::move(drop), point);
    return true;
  }
  // Never a move: the other program would remove its own.
  HRESULT answer(DWORD* effect) const {
    if (effect == nullptr)
      return E_POINTER;
    const DWORD allowed = *effect;
    *effect = !wanted_                           ? DROPEFFECT_NONE
              : (allowed & DROPEFFECT_COPY) != 0 ? DROPEFFECT_COPY
              : (allowed & DROPEFFECT_LINK) != 0 ? DROPEFFECT_LINK
                                                 : DROPEFFECT_NONE;
    return S_OK;
  }

  Taken taken_;
  bool wanted_ = false; // what is dragged over the window
};

DropTarget::DropTarget(HWND window, Taken taken) : window_(window), object_(new Object(std::move(taken))) {
  if (session_.entered())
    (void)RegisterDragDrop(window_, object_); // without it nothing can be dropped, and the cursor says so
}

DropTarget::~DropTarget() {
  object_->leave();
  if (session_.entered())
    (void)RevokeDragDrop(window_); // it may not have been registered
  object_->Release();
}

} // namespace lumotune::platform::win32
