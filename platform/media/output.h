// SPDX-License-Identifier: LGPL-2.1-or-later
// A sound device as the engine sees it.
#pragma once

#include "platform/media/mixer.h"

#include <memory>

namespace lumotune::media {

// All calls on the one thread that made it; while it runs it calls Mixer::render on a thread of its own. No call has a
// bound on its time: a sound system may hang in each of them.
class AudioOutput {
public:
  AudioOutput() = default;
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;
  virtual ~AudioOutput() = default; // stops first

  // Before `open`: the rate that the default device itself works at, in frames a second; 0 when there is no device or
  // its rate is an odd one.
  [[nodiscard]] virtual int preferred_rate() = 0;
  // Opens the default device for stereo floats of the mixer's rate. False when there is no device.
  [[nodiscard]] virtual bool open(Mixer& mixer, int latency_ms) = 0;
  [[nodiscard]] virtual bool start() = 0;
  virtual void stop() = 0;
  virtual void set_volume(float volume) = 0;     // 0 or 1: of what the device has already taken, too
  [[nodiscard]] virtual bool failed() const = 0; // the device went away: destroy this and make another
};

} // namespace lumotune::media
