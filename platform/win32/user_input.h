// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's hand: the mouse button and the media keys.
#pragma once

#include "platform/user_input.h"
#include "platform/win32/event_loop.h"

namespace lumotune::platform::win32 {

class Pointer final : public platform::Pointer {
public:
  void click_left() override;
};

// Hears of the keys in two ways: as hot keys, wherever the keyboard's focus is, and as the commands that some keyboards
// and remote controls send instead, which reach the window that has the focus. Made before anything else takes the
// window's procedure for itself, and destroyed after that has given it back.
class MediaKeys final : public platform::MediaKeys {
public:
  MediaKeys(EventLoop& loop, HWND window);
  MediaKeys(const MediaKeys&) = delete;
  MediaKeys& operator=(const MediaKeys&) = delete;
  ~MediaKeys() override;

  void take() override;
  void release() override;

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR self);
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l);
  void fire(const std::function<void()>& handler);

  EventLoop& loop_;
  HWND window_;
  bool taken_ = false;
};

} // namespace lumotune::platform::win32
