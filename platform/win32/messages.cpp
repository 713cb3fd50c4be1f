// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/messages.h"

#include <array>

namespace lumotune::platform::win32 {
namespace {

constexpr const wchar_t* self_property = L"Lumotune.Hook";

HWND handle_of(WindowRef window) {
  return reinterpret_cast<HWND>(window);
}

} // namespace

WindowRef Messages::find_by_caption(const std::wstring& caption) const {
  loop_.check_thread();
  if (caption.empty() || caption.size() > max_caption)
    return WindowRef::none;
  return static_cast<WindowRef>(reinterpret_cast<std::uintptr_t>(FindWindowA(nullptr, codec_.encode(caption).c_str())));
}

// A copy's main window is of the same class as ours.
WindowRef Messages::find_copy(const std::wstring& caption) const {
  loop_.check_thread();
  std::array<wchar_t, 257> name{};
  if (GetClassNameW(window_, name.data(), static_cast<int>(name.size())) > 0) {
    HWND found = FindWindowW(name.data(), caption.c_str());
    if (found == window_ && found != nullptr)
      found = FindWindowExW(nullptr, found, name.data(), caption.c_str());
    if (found != nullptr)
      return static_cast<WindowRef>(reinterpret_cast<std::uintptr_t>(found));
  }
  return find_by_caption(caption);
}

void Messages::send_copy_data(WindowRef target, std::string_view bytes) {
  loop_.check_thread();
  if (target != WindowRef::none && bytes.size() <= max_bytes)
    outbox_.add({window_, handle_of(target), std::string(bytes)});
}

bool Messages::sending() const {
  loop_.check_thread();
  return outbox_.busy();
}

void Messages::let_take_foreground(WindowRef target) {
  loop_.check_thread();
  DWORD process = 0;
  if (target != WindowRef::none && GetWindowThreadProcessId(handle_of(target), &process) != 0)
    AllowSetForegroundWindow(process);
}

void Messages::hook(std::function<void(const CopyData&)> receive) {
  loop_.check_thread();
  Hook(static_cast<bool>(receive));
  receive_ = std::move(receive);
}

// SetWindowLong would truncate the procedure's address in a 64-bit program.
void Messages::Hook(bool enable) {
  if (enable == (old_procedure_ != nullptr))
    return;
  if (enable) {
    SetPropW(window_, self_property, this);
    old_procedure_ =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc)));
  } else {
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(old_procedure_));
    RemovePropW(window_, self_property);
    old_procedure_ = nullptr;
  }
}

LRESULT CALLBACK Messages::WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  auto* self = static_cast<Messages*>(GetPropW(hwnd, self_property));
  if (self == nullptr)
    return DefWindowProcW(hwnd, msg, wParam, lParam);
  if (msg != WM_COPYDATA)
    return CallWindowProcW(self->old_procedure_, hwnd, msg, wParam, lParam);
  self->loop_.caught().guard([&] { self->receive(lParam); });
  return -1;
}

// The system copies the sender's bytes, except for a message sent from within this process.
void Messages::receive(LPARAM record) {
  const auto* sent = reinterpret_cast<const COPYDATASTRUCT*>(record);
  if (sent == nullptr || !receive_)
    return;
  CopyData data;
  data.kind = static_cast<std::uint32_t>(sent->dwData);
  const bool usable = sent->lpData != nullptr && sent->cbData <= max_bytes;
  if (usable)
    data.bytes.assign(static_cast<const char*>(sent->lpData), sent->cbData);
  const auto receive = receive_;
  receive(data);
}

} // namespace lumotune::platform::win32
