// SPDX-License-Identifier: LGPL-2.1-or-later
// The thread that makes every call to the sound device, so that a stop is silent without waiting for the network.
#pragma once

#include "platform/media/output.h"

#include <chrono>
#include <functional>
#include <memory>

namespace lumotune::media {

using OutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

// Opens the device when sound is wanted, starts and stops it, and reopens it after it went away or while there is none.
// Any thread may call the functions below. All but the two that wait return at once, even while a call of the sound
// system never returns: the thread owns all it touches and is then abandoned.
class Device {
public:
  static constexpr std::chrono::milliseconds hung_after{3000};

  // Throws std::system_error where no thread can be made.
  Device(std::shared_ptr<Mixer> mixer, OutputFactory make_output, int latency_ms);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device() { end(); } // waits for nothing

  void run();     // sound is wanted: the device is opened
  void flow();    // sound is buffered: the device starts, with sound from its first callback
  void silence(); // sound is no longer wanted: what the device has taken already is muted, too
  void end();     // the device is closed and the thread ends, as soon as the sound system allows
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time); // after `end`

  // Runs `work` in place of the sound callback, which cannot start before `work` returns. False, without running it,
  // where the callback may be running.
  bool while_unused(const std::function<void()>& work);
  // A call of the sound system has not returned for `hung_after`.
  [[nodiscard]] bool hung() const;
  // Sound is wanted, but there is no device, or it hangs.
  [[nodiscard]] bool missing() const;
  // Waits at most that long until the mixer's rate is settled: the device was asked for its rate, or none was found.
  [[nodiscard]] bool wait_for_rate(std::chrono::milliseconds time);
  void settle_rate(); // the rate stays as it is from now on, whatever the device prefers

private:
  struct State;
  std::shared_ptr<State> state_; // also the thread's
};

} // namespace lumotune::media
