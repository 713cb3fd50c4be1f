// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's hand: clicks put into the system's input, and the media keys of the keyboard.
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

  // Presses and releases the logical left button (the physical right one where the user has swapped them) where the
  // pointer is. What it hits hears of it once pending events run.
  virtual void click_left() = 0;
};

// Keys of the keyboard for players, wherever the keyboard's focus is. User-interface thread.
class MediaKeys {
public:
  MediaKeys() = default;
  MediaKeys(const MediaKeys&) = delete;
  MediaKeys& operator=(const MediaKeys&) = delete;
  virtual ~MediaKeys() = default;

  // Takes the keys from now on; one that another program holds stays with it, without a word.
  virtual void take() = 0;
  virtual void release() = 0;

  std::function<void()> on_play_pause;
  std::function<void()> on_stop;
};

} // namespace lumotune::platform
