// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/user_input.h"

#include <commctrl.h>

namespace lumotune::platform::win32 {
namespace {

// Hot-key identifiers, unique to the window.
constexpr int hot_play_pause = 1;
constexpr int hot_stop = 2;
constexpr UINT_PTR subclass = 2;

} // namespace

// Both in one call: no input of the user can come in between.
void Pointer::click_left() {
  const bool swapped = GetSystemMetrics(SM_SWAPBUTTON) != 0;
  mouse_event(swapped ? MOUSEEVENTF_RIGHTDOWN | MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTDOWN | MOUSEEVENTF_LEFTUP, 0, 0,
              0, 0);
}

MediaKeys::MediaKeys(EventLoop& loop, HWND window) : loop_(loop), window_(window) {
  SetWindowSubclass(window_, procedure, subclass, reinterpret_cast<DWORD_PTR>(this));
}

MediaKeys::~MediaKeys() {
  release();
  RemoveWindowSubclass(window_, procedure, subclass);
}

// A key registered by another program stays with it.
void MediaKeys::take() {
  loop_.check_thread();
  if (taken_)
    return;
  taken_ = true;
  RegisterHotKey(window_, hot_play_pause, MOD_NOREPEAT, VK_MEDIA_PLAY_PAUSE);
  RegisterHotKey(window_, hot_stop, MOD_NOREPEAT, VK_MEDIA_STOP);
}

void MediaKeys::release() {
  loop_.check_thread();
  if (!taken_)
    return;
  taken_ = false;
  UnregisterHotKey(window_, hot_play_pause);
  UnregisterHotKey(window_, hot_stop);
}

LRESULT CALLBACK MediaKeys::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR /*id*/, DWORD_PTR self) {
  if (reinterpret_cast<MediaKeys*>(self)->handle_message(message, w, l))
    return TRUE;
  return DefSubclassProc(window, message, w, l);
}

void MediaKeys::fire(const std::function<void()>& handler) {
  if (const auto copy = handler)
    loop_.caught().guard(copy);
}

bool MediaKeys::handle_message(UINT message, WPARAM w, LPARAM l) {
  if (!taken_)
    return false;
  if (message == WM_HOTKEY && (w == hot_play_pause || w == hot_stop)) {
    fire(w == hot_stop ? on_stop : on_play_pause);
    return true;
  }
  if (message != WM_APPCOMMAND)
    return false;
  switch (GET_APPCOMMAND_LPARAM(l)) {
  case APPCOMMAND_MEDIA_PLAY_PAUSE:
  case APPCOMMAND_MEDIA_PLAY:
  case APPCOMMAND_MEDIA_PAUSE:
    fire(on_play_pause);
    return true;
  case APPCOMMAND_MEDIA_STOP:
    fire(on_stop);
    return true;
  default:
    return false;
  }
}

} // namespace lumotune::platform::win32
