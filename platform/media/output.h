// SPDX-License-Identifier: LGPL-2.1-or-later
// The interface to a sound device.
#pragma once

#include "platform/media/mixer.h"

#include <functional>
#include <memory>

namespace lumotune::media {

// All calls are made on the thread that created it; while running it calls Mixer::render on its own thread. Any call
// may hang in the sound system.
class AudioOutput {
public:
  AudioOutput() = default;
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;
  virtual ~AudioOutput() = default; // stops first

  // Before `open`: the native rate of the default device, in frames per second; 0 without a device or if its rate is
  // unusual.
  [[nodiscard]] virtual int preferred_rate() = 0;
  // Opens the default device for stereo floats at the mixer's rate. False without a device.
  [[nodiscard]] virtual bool open(Mixer& mixer, int latency_ms) = 0;
  [[nodiscard]] virtual bool start() = 0;
  virtual void stop() = 0;
  virtual void set_volume(float volume) = 0;     // 0 or 1; also applies to what the device has buffered
  [[nodiscard]] virtual bool failed() const = 0; // the device is gone: create another output

  // Called once `failed` has become true, on any thread. Set before `open`.
  std::function<void()> on_failed;
};

} // namespace lumotune::media
