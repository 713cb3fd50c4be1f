// SPDX-License-Identifier: LGPL-2.1-or-later
// The thread that makes every call to the sound device: a stop is silent without waiting for the network.
#pragma once

#include "platform/media/output.h"

#include <chrono>
#include <functional>
#include <memory>

namespace lumotune::media {

using OutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

// Opens the device when sound is wanted, starts and stops it, and makes it anew after it went away or where there was
// none yet. Any thread calls the functions below; but for the two that wait, they return at once, also while a call of
// the sound system never does: the thread owns all it touches and is left behind then.
class Device {
public:
  static constexpr std::chrono::milliseconds hung_after{3000};

  // Throws std::system_error where no thread can be made.
  Device(std::shared_ptr<Mixer> mixer, OutputFactory make_output, int latency_ms);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device() { end(); } // waits for nothing

  void run();     // sound is wanted: the device is opened
  void flow();    // there is sound now: it is started, with sound from its first moment
  void silence(); // and now it is not: what the device has taken already is muted, too
  void end();     // the device is closed and the thread ends, as soon as the sound system lets it
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time); // after `end`

  // Runs `work` in the place of the sound callback, which does not run before it returns. False, and nothing is run,
  // while the callback may be running.
  bool while_unused(const std::function<void()>& work);
  // A call of the sound system has not returned for `hung_after`.
  [[nodiscard]] bool hung() const;
  // Sound is wanted, but no device is there, or the one that is there does not answer.
  [[nodiscard]] bool missing() const;
  // Waits that long at most for the mixer's rate to be settled: the device was asked for it, or found missing, once.
  [[nodiscard]] bool wait_for_rate(std::chrono::milliseconds time);
  void settle_rate(); // it stays what it is from now on, whatever the device prefers

private:
  struct State;
  std::shared_ptr<State> state_; // also the thread's
};

} // namespace lumotune::media
