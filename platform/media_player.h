// SPDX-License-Identifier: LGPL-2.1-or-later
// The embedded media player as the rooms see it: an address, play, stop, a volume and a status.
#pragma once

#include "platform/stream_status.h"

#include <cstdint>
#include <functional>
#include <string>

namespace lumotune::platform {

// The numbers that the play-state notification carries.
enum class PlayState : int { stopped = 1, playing = 3, buffering = 6, reconnecting = 11, connecting = 9 };

// Where an address comes from, which decides what it may reach.
enum class AddressOrigin {
  station,  // a station file, or a client's word for a station: network schemes only
  message,  // another program's message: also files on this machine's drives, never a share or a device
  listener, // typed into the console or on the command line: whatever the listener may open
};

// One player of one stream. Every member is called on the user-interface thread and returns at once: no call waits for
// the network, the disk or the sound device. Nothing throws; what goes wrong is told by `status`.
//
// The listener's intent (between `play` and `stop`) is kept apart from the flow of sound: while it lasts the player
// comes back by itself after a drop, an error page, a suspended machine or a lost sound device.
class MediaPlayer {
public:
  MediaPlayer() = default;
  MediaPlayer(const MediaPlayer&) = delete;
  MediaPlayer& operator=(const MediaPlayer&) = delete;
  virtual ~MediaPlayer() = default;

  // The address to play: http, https, mms, file address or a path of this machine. While a stream plays, another
  // address stops it; sound starts again with `play`, or at once where automatic start is on (which it is when made).
  // The address that plays, with the same origin, changes nothing.
  // What `origin` does not allow is never opened; the status then says that the address is of an unknown kind.
  virtual void set_url(const std::wstring& url, AddressOrigin origin) = 0;
  [[nodiscard]] virtual std::wstring url() const = 0;
  virtual void set_auto_start(bool on) = 0;

  virtual void play() = 0; // starts live, never with old sound; with no address the status says so
  virtual void stop() = 0; // silence within 50 ms whatever the network does

  // Whether sound is wanted, be there any or not: from `play` on until `stop` or another address.
  [[nodiscard]] virtual bool playing() const = 0;

  virtual void set_volume(int percent) = 0; // clamped to 0..100, ramped without a click
  [[nodiscard]] virtual int volume() const = 0;

  // The machine goes to sleep or has woken up: drop the connection, or take it up again at once if sound is wanted.
  virtual void system_suspended() = 0;
  virtual void system_resumed() = 0;

  // As known now. After a call above it is the new state at once: stopped, connecting, or waiting while suspended.
  [[nodiscard]] virtual StreamStatus status() const = 0;

  // Milliseconds of the stream heard since `play`, outages left out; 0 while none was heard or when stopped.
  [[nodiscard]] virtual std::uint64_t played_ms() const = 0;

  // Notifications, on the user-interface thread, never from inside one of the calls above.
  std::function<void(int new_state)> on_play_state_change;
  std::function<void()> on_status_change;
};

} // namespace lumotune::platform
