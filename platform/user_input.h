// SPDX-License-Identifier: LGPL-2.1-or-later
// Simulated clicks in the system's input, and the keyboard's media keys.
#pragma once

#include <functional>

namespace lumotune::platform {

// User-interface thread.
class Pointer {
public:
  Pointer() = default;
  Pointer(const Pointer&) = delete;
  Pointer& operator=(const Pointer&) = delete;
  virtual ~Pointer() = default;

  // Presses and releases the logical left button (the physical right one if the user has swapped them) at the pointer.
  // The target receives the click when pending events run.
  virtual void click_left() = 0;
};

// The keyboard's media keys, wherever the focus is. User-interface thread.
class MediaKeys {
public:
  MediaKeys() = default;
  MediaKeys(const MediaKeys&) = delete;
  MediaKeys& operator=(const MediaKeys&) = delete;
  virtual ~MediaKeys() = default;

  // Registers the keys; one held by another program stays with it, silently.
  virtual void take() = 0;
  virtual void release() = 0;

  std::function<void()> on_play_pause;
  std::function<void()> on_stop;
};

} // namespace lumotune::platform
