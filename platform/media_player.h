// SPDX-License-Identifier: LGPL-2.1-or-later
// Interface of the embedded media player: an address, play, stop, a volume and a status.
#pragma once

#include "platform/stream_status.h"

#include <cstdint>
#include <functional>
#include <string>

namespace lumotune::platform {

// The values passed to the play-state notification.
enum class PlayState : int { stopped = 1, playing = 3, buffering = 6, reconnecting = 11, connecting = 9 };

// The source of an address, which decides what it may reach.
enum class AddressOrigin {
  station,  // a station file, or the client on behalf of a station: network schemes only
  message,  // a message from another program: also files on this machine's drives, never a share or a device
  dropped,  // a file dropped on the window: a file on this machine's drives; if it is a list, its entries are a
            // station's
  listener, // typed into the console or on the command line: anything the listener may open
};

// Plays one stream at a time. Every member is called on the user-interface thread and returns at once: no call waits
// for the network, the disk or the sound device. Nothing throws; errors are reported by `status`.
// The listener's intent (between `play` and `stop`) is kept apart from the actual sound: while it lasts, the player
// recovers by itself from a drop, an error page, a suspended machine or a lost sound device.
class MediaPlayer {
public:
  MediaPlayer() = default;
  MediaPlayer(const MediaPlayer&) = delete;
  MediaPlayer& operator=(const MediaPlayer&) = delete;
  virtual ~MediaPlayer() = default;

  // The address to play: http, https, mms, a file address or a path on this machine. While a stream plays, a different
  // address stops it; sound starts again with `play`, or at once with automatic start on (the default). Setting the
  // playing address again, with the same origin, has no effect.
  // An address that `origin` does not allow is never opened; the status then reports an unsupported address.
  virtual void set_url(const std::wstring& url, AddressOrigin origin) = 0;
  [[nodiscard]] virtual std::wstring url() const = 0;
  virtual void set_auto_start(bool on) = 0;

  virtual void play() = 0; // starts live, never with stale sound; without an address the status says so
  virtual void stop() = 0; // silence within 50 ms, whatever the network does

  // Whether sound is wanted, even if there is none at the moment: from `play` until `stop` or another address.
  [[nodiscard]] virtual bool playing() const = 0;

  virtual void set_volume(int percent) = 0; // clamped to 0..100, ramped without a click
  [[nodiscard]] virtual int volume() const = 0;

  // The machine is suspended or has resumed: drops the connection, or reconnects at once if sound is wanted.
  virtual void system_suspended() = 0;
  virtual void system_resumed() = 0;

  // The current status. After one of the calls above it is immediately the new one: stopped, connecting, or waiting
  // while suspended.
  [[nodiscard]] virtual StreamStatus status() const = 0;

  // Milliseconds of sound heard since `play`, excluding outages; 0 while none has been heard or when stopped.
  [[nodiscard]] virtual std::uint64_t played_ms() const = 0;

  // Notifications, on the user-interface thread, never from inside one of the calls above.
  std::function<void(int new_state)> on_play_state_change;
  std::function<void()> on_status_change;
};

} // namespace lumotune::platform
