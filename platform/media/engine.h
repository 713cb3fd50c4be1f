// SPDX-License-Identifier: LGPL-2.1-or-later
// Plays what it is told to on threads of its own: a worker connects and decodes, a device thread drives the sound
// system. All members are called on the thread that made the engine, the user-interface thread.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/media/board.h"
#include "platform/media/mailbox.h"
#include "platform/media/player_options.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

namespace lumotune::media {

struct EngineChannels;

// No member waits for the network or the sound system but `wait_ended`. A worker that hangs in a name look-up, or a
// device thread that hangs in the sound system, which nothing interrupts, is abandoned: each holds all it touches and
// ends when the call returns.
class Engine {
public:
  // Starts both threads. Throws std::system_error where one cannot be made.
  Engine(const PlayerOptions& options, std::shared_ptr<Board> board);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine() { abandon(); }

  // Replaces the wish before, whatever became of it: silence at once where it differs, then sound as soon as there is
  // some. Stream numbers grow with each wish.
  void wish(const Wish& wish);
  // Silence at once; both threads end as soon as they can. No wish may follow.
  void abandon();
  // After `abandon`: waits at most that long for both threads together. False where one still runs.
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time);
  // Expires when the engine is destroyed and both of its threads have ended.
  [[nodiscard]] std::weak_ptr<const void> lifetime() const;

  void set_volume(int percent);                                     // clamped to 0..100
  [[nodiscard]] std::uint64_t heard_ms(std::uint64_t stream) const; // of that stream; 0 where it was not heard yet
  [[nodiscard]] std::uint64_t taken() const;                        // the wish that the worker took last
  [[nodiscard]] bool device_hung() const;                           // a call of the sound system does not return

private:
  // Outlives the engine, so that the worker can report its end after the engine is gone.
  struct End {
    std::mutex mutex;
    std::condition_variable changed;
    bool reached = false;
  };

  const platform::ThreadCheck ui_thread_{"user-interface thread"};
  const std::shared_ptr<EngineChannels> channels_; // also the worker's
  const std::shared_ptr<End> end_ = std::make_shared<End>();
};

} // namespace lumotune::media
