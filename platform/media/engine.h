// SPDX-License-Identifier: LGPL-2.1-or-later
// Plays streams on its own threads: a worker connects and decodes, a device thread drives the sound system. All members
// are called on the thread that created the engine, the user-interface thread.
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

// No member except `wait_ended` waits for the network or the sound system. A worker hanging in a name look-up, or a
// device thread hanging in the sound system, cannot be interrupted and is abandoned: it owns everything it touches and
// ends when the call returns.
class Engine {
public:
  // Starts both threads. Throws std::system_error when one cannot be created.
  Engine(const PlayerOptions& options, std::shared_ptr<Board> board);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine() { abandon(); }

  // Replaces the previous wish, whatever its state: silence at once if it differs, then sound as soon as available.
  // Stream numbers increase with each wish.
  void wish(const Wish& wish);
  // Silence at once; both threads end as soon as they can. No wish may follow.
  void abandon();
  // After `abandon`: waits up to `time` for both threads together. False when one is still running.
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time);
  // Expires when the engine is destroyed and both of its threads have ended.
  [[nodiscard]] std::weak_ptr<const void> lifetime() const;

  void set_volume(int percent);                                     // clamped to 0..100
  [[nodiscard]] std::uint64_t heard_ms(std::uint64_t stream) const; // of that stream; 0 if not heard yet
  [[nodiscard]] std::uint64_t taken() const;                        // the last wish the worker took
  [[nodiscard]] bool device_hung() const;                           // a call into the sound system does not return

private:
  // Outlives the engine, so that the worker can report its end after the engine is gone.
  struct End {
    std::mutex mutex;
    std::condition_variable changed;
    bool reached = false;
  };

  const platform::ThreadCheck ui_thread_{"user-interface thread"};
  const std::shared_ptr<EngineChannels> channels_; // shared with the worker
  const std::shared_ptr<End> end_ = std::make_shared<End>();
};

} // namespace lumotune::media
