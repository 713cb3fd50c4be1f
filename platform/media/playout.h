// SPDX-License-Identifier: LGPL-2.1-or-later
// Buffering between the decoder and the sound device. Starts sound when enough is buffered, handles underruns, clock
// drift and devices that come and go, and reports the running stream's status.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/media/current_wish.h"
#include "platform/media/drift.h"
#include "platform/media/engine_channels.h"
#include "platform/media/stream_status.h"
#include "platform/media/title_queue.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace lumotune::media {

class Decoder;

// Worker thread, once `rebind` has made it the owner. One object serves all streams in turn.
class Playout {
public:
  Playout(EngineChannels& channels, CurrentWish& wish) : channels_(channels), mixer_(*channels.mixer), wish_(wish) {}

  void rebind() { worker_thread_.rebind(); }

  void discard(); // silence; what is buffered is never heard
  // Waits for the device's rate, for a limited time. False when a newer wish arrives meanwhile.
  [[nodiscard]] bool wait_for_rate();
  [[nodiscard]] int rate() const { return mixer_.rate(); } // of the frames it takes, in frames a second

  // The periodic work: called several times a second, also while waiting for the network and while no stream is open.
  void tick();

  // One stream, between `begin` and `end`. What an earlier connection left in the buffer keeps playing.
  // `stalled` tells at each tick whether the stream has sent nothing for a while; it must be callable until `end`.
  void begin(const StreamStatus& status, bool live, std::function<bool()> stalled);
  void end() {
    streaming_ = false;
    stalled_ = nullptr;
  }
  [[nodiscard]] bool flowed() const { return flowed_; } // since `begin`, and the buffer has not run dry since
  // Stereo frames; waits while the buffer is full, until a newer wish arrives.
  void write(const float* frames, std::size_t count);
  void drain(); // at the end of a file: plays what is buffered
  // `sample_rate` is the actual rate of the decoded frames, 0 while unknown.
  void update(bool unverified, int sample_rate);
  void add_title(std::wstring title); // shown when the next written frame is heard
  void correct_drift(Decoder& decoder);
  void note_read(std::chrono::steady_clock::duration took) { waited_since_pause_ += took; } // of one packet
  void pace_reads(); // pauses reading while enough of a live stream is buffered

private:
  void pause(int times);
  void start_flow();
  void update_buffering();
  void update_title();
  void update_playing();
  void check_device();
  void drop_unheard();
  [[nodiscard]] std::uint32_t level_ms() const;

  platform::ThreadCheck worker_thread_{"worker thread"};
  EngineChannels& channels_;
  Mixer& mixer_;

  // Owned by the worker thread.
  CurrentWish& wish_;
  bool device_hung_ = false; // at the last tick

  // Of the current stream.
  bool streaming_ = false;
  bool live_ = false;
  bool flowed_ = false;
  std::function<bool()> stalled_;
  StreamStatus status_;
  TitleQueue titles_; // by their position in the ring
  DriftControl drift_;
  std::chrono::steady_clock::time_point drift_checked_;
  std::chrono::steady_clock::time_point sound_began_;
  std::uint32_t underruns_ = 0;
  std::size_t written_since_pause_ = 0;                      // frames
  std::chrono::steady_clock::duration waited_since_pause_{}; // for packets
  int reads_that_waited_ = 0;                                // between pauses, in a row
  std::size_t leading_silence_ = 0;                          // frames still to be skipped while they are all zero
};

} // namespace lumotune::media
