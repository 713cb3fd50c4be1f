// SPDX-License-Identifier: LGPL-2.1-or-later
// The worker: serves one wish after another, and reconnects after every failure for as long as sound is wanted.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/media/attempt.h"
#include "platform/media/connector.h"
#include "platform/media/current_wish.h"
#include "platform/media/engine_channels.h"
#include "platform/media/packet_source.h"
#include "platform/media/player_options.h"
#include "platform/media/playout.h"
#include "platform/media/retry.h"
#include "platform/media/worker_clock.h"

#include <functional>
#include <memory>
#include <optional>
#include <random>

namespace lumotune::media {

// What tests replace; unset: the real thing.
struct WorkerSeams {
  using Play = std::function<Attempt(PacketSource& source)>;
  std::shared_ptr<WorkerClock> clock;
  // One attempt to play the wish: opens something and plays it.
  std::function<Attempt(const Wish& wish, CurrentWish& current, const Play& play)> connect;
  std::optional<unsigned> seed; // of the delays before retries
};

// Created on any thread; `run` makes its thread the owner.
class StreamWorker {
public:
  StreamWorker(const PlayerOptions& options, std::shared_ptr<EngineChannels> channels, WorkerSeams seams = {});
  StreamWorker(const StreamWorker&) = delete;
  StreamWorker& operator=(const StreamWorker&) = delete;
  ~StreamWorker() = default;

  void run(); // returns when the mailbox is closed

private:
  void serve_next_wish();
  void report(const StreamStatus& status);
  void report_failure() noexcept;
  void play(const Wish& wish);
  [[nodiscard]] Attempt attempt(const Wish& wish);
  [[nodiscard]] Attempt play_stream(PacketSource& source);
  [[nodiscard]] bool wait_before_retry(const Attempt& failure, std::chrono::milliseconds silent);

  platform::ThreadCheck worker_thread_{"worker thread"};
  const std::shared_ptr<EngineChannels> channels_;
  const double retry_scale_;
  const WorkerSeams seams_;
  const std::shared_ptr<WorkerClock> clock_;

  // Owned by the worker thread.
  CurrentWish wish_;
  Playout playout_;
  Connector connector_;
  RetryPolicy retry_;
  std::uint64_t heard_ms_ = 0; // by the current attempt
  std::minstd_rand random_;
};

} // namespace lumotune::media
