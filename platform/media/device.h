// SPDX-License-Identifier: LGPL-2.1-or-later
// The thread that makes every call to the sound device, so that a stop is silent without waiting for the network.
#pragma once

#include "platform/media/output.h"

#include <chrono>
#include <functional>
#include <memory>

namespace lumotune::media {

using OutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

// Opens the device when sound is wanted, starts and stops it, and reopens it after it was lost or while there is none.
// The functions below may be called from any thread. All but the two waiting ones return at once, even if a call into
// the sound system never returns: the thread owns everything it touches and is then abandoned.
class Device {
public:
  static constexpr std::chrono::milliseconds hung_after{3000};

  // Throws std::system_error when the thread cannot be created.
  Device(std::shared_ptr<Mixer> mixer, OutputFactory make_output, int latency_ms);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device() { end(); } // does not wait

  void run();     // sound is wanted: the device is opened
  void flow();    // sound is buffered: the device starts, with sound from its first callback
  void silence(); // sound is no longer wanted: mutes also what the device has already taken
  void end();     // closes the device and ends the thread as soon as the sound system allows
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time); // after `end`

  // Runs `work` in place of the sound callback, which cannot start before `work` returns. False, without running it,
  // when the callback may be running.
  bool while_unused(const std::function<void()>& work);
  // A call into the sound system has not returned for `hung_after`.
  [[nodiscard]] bool hung() const;
  // Sound is wanted, but there is no device, or it hangs.
  [[nodiscard]] bool missing() const;
  // Waits up to `time` until the mixer's rate is settled: the device's preferred rate is known, or no device was found.
  [[nodiscard]] bool wait_for_rate(std::chrono::milliseconds time);
  void settle_rate(); // fixes the rate, whatever the device prefers

private:
  struct State;
  std::shared_ptr<State> state_; // also the thread's
};

} // namespace lumotune::media
